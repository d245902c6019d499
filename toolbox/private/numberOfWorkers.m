function workers = numberOfWorkers(servers)
%numberOfWorkers  How many processes calculate at the same time, with connections to SERVERS if it is not empty.
%
%   It is 1 where nothing runs beside this process.
workers = 1;
if exist('OCTAVE_VERSION', 'builtin')
    if ispc() && isempty(servers)
        return % Octave copies its process for them, which Windows can not
    end
    if ~exist('parcellfun', 'file')
        try
            pkg('load', 'parallel');
        catch
            return % it is not installed
        end
    end
    workers = nproc();
    if ~isempty(servers)
        workers = max(2, workers * (numel(servers) - 1)); % the first is this machine
    end
elseif exist('gcp', 'file')
    pool = gcp();
    if ~isempty(pool)
        workers = pool.NumWorkers;
    end
end
end
