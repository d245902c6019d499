function code = exist(name, varargin)
% Makes Octave look like MATLAB with a parallel pool; `release_2016b` is one without queues.
global release_2016b
switch name
    case 'OCTAVE_VERSION'
        code = 0;
    case 'gcp'
        code = 2;
    case 'parallel.pool.DataQueue'
        code = 8 * isempty(release_2016b);
    otherwise
        code = builtin('exist', name, varargin{:});
end
end
