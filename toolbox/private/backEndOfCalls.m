function [backEnd, details] = backEndOfCalls()
%backEndOfCalls  Where the library runs, as capeOpenBackend calls it, and a line on what runs there.
backEnd = getenv('VERDANTH_BACKEND');
if isempty(backEnd) || ~exist('OCTAVE_VERSION', 'builtin')
    backEnd = 'native';
end
details = backEnd;
if ~strcmp(backEnd, 'native')
    details = Verdanth('back end');
end
end
