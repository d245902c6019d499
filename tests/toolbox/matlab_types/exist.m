function code = exist(name, varargin)
% Makes Octave look like MATLAB.
code = 0;
if ~strcmp(name, 'OCTAVE_VERSION')
    code = builtin('exist', name, varargin{:});
end
end
