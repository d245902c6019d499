function code = exist(name, varargin)
% Octave is not asked.
if strcmp(name, 'OCTAVE_VERSION')
    code = 0;
else
    code = builtin('exist', name, varargin{:});
end
end
