function onWorkers(work, jobs, workers, servers, take)
%onWorkers  Has workers do jobs, each in its own process, and TAKE what they give as it comes, in any order.
%
%   An outcome is WORK(job). SERVERS are connections of Octave, or [] for the workers of this machine or of the pool, of
%   which there are WORKERS; there have to be two or more. Raises an error if a worker is lost: what was taken until
%   then is done, and the rest is not. TAKE may get an outcome twice.
if exist('OCTAVE_VERSION', 'builtin')
    onOctave(work, jobs, workers, servers, take);
else
    onPool(work, jobs, take);
end
end

function onOctave(work, jobs, workers, servers, take)
if exist('OCTAVE_VERSION', 'builtin')
    try
        if isempty(servers)
            together = @(one, other) taken(one, other, take);
            together(parcellfun(workers, work, jobs, 'CumFunc', together), []);
        else
            reval(pathForServers(), servers);
            for k = 1:4 * workers:numel(jobs) % what servers have done comes back with the last of a call
                some = jobs(k:min(k + 4 * workers - 1, end));
                outcomes = netcellfun(servers, work, some, 'UniformOutput', false);
                cellfun(take, outcomes);
            end
        end
    catch problem
        interrupted = any(regexp(problem.message, 'could not (receive|send)', 'once')) && ~anyWasLost(servers);
        parcellfun_set_nproc(0); % the next call has workers that do nothing else
        if interrupted
            kill(getpid(), 2);
            pause(1); % ends here
        end
        rethrow(problem);
    end
end
end

% Where the folders of this machine are there on a server, too, nothing has to be installed.
function code = pathForServers()
folders = {fileparts(fileparts(mfilename('fullpath'))), fileparts(which('Verdanth'))};
code = sprintf('if exist(''%s'', ''dir''), addpath(''%s''); end\n', folders{[1, 1, 2, 2]});
end

% An interrupt breaks the connections, too, and looks the same. It lets workers live, or has them end by themselves.
function answer = anyWasLost(servers)
pause(0.05);
answer = false;
pid = 1;
if exist('OCTAVE_VERSION', 'builtin') && ~isempty(servers)
    try
        reval('true;', servers);
    catch
        answer = true;
    end
elseif exist('OCTAVE_VERSION', 'builtin')
    while pid > 0 && ~answer
        [pid, status] = waitpid(-1, WNOHANG());
        answer = pid > 0 && WIFSIGNALED(status);
    end
end
end

% Of two outcomes, or of none in the place of those that were taken.
function none = taken(one, other, take)
take(one);
take(other);
none = [];
end

function onPool(work, jobs, take)
outcomes = cell(1, numel(jobs));
queue = [];
if exist('parallel.pool.DataQueue', 'class')
    queue = parallel.pool.DataQueue();
    afterEach(queue, take); % what is done outlives an interrupt and the loss of a worker
end
parfor k = 1:numel(jobs)
    outcomes{k} = work(jobs{k});
    if ~isempty(queue)
        send(queue, outcomes{k});
    end
end
cellfun(take, outcomes);
end
