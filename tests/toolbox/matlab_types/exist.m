function code = exist(name, varargin)
% Makes Octave look like MATLAB.
switch name
    case 'OCTAVE_VERSION'
        code = 0;
    case 'table'
        code = 8;
    otherwise
        code = builtin('exist', name, varargin{:});
end
end
