function [backEnd, details] = backEndOfCalls()
%backEndOfCalls  Where the library runs, as capeOpenBackend calls it, and a line on what runs there.
backEnd = '';
in_octave = exist('OCTAVE_VERSION', 'builtin');
if in_octave && ispc()
    backEnd = 'isolated';
elseif in_octave
    backEnd = getenv('VERDANTH_BACKEND');
elseif strcmpi(fileparts(which('Verdanth')), isolatedFolder())
    backEnd = 'isolated';
end
if isempty(backEnd)
    backEnd = 'native';
end
details = backEnd;
if nargout > 1 && ~strcmp(backEnd, 'native')
    details = Verdanth('back end');
end
end
