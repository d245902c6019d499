function flashOnWorkers(job, batch, given, secondsPerRow, servers)
%flashOnWorkers  Has workers calculate the rows that keptRows has left, and adds to it what they did.
%
%   JOB has what is the same for all blocks, see capeopen.internal.flashBlock, but for their BATCH. SERVERS are the
%   connections to them; [] for the workers of this machine or of the pool. Where there are none, nothing is done.
job.batch = batch;
take = @(outcome) kept(outcome, given);
for attempt = 1:2 % the second with workers in the place of those that were lost
    left = keptRows('left');
    if isempty(left)
        return
    end
    workers = numberOfWorkers(servers); % looked for no sooner than there is work for them
    if workers < 2
        return
    end
    try
        jobs = jobsFor(job, given, left, secondsPerRow, workers);
        if exist('OCTAVE_VERSION', 'builtin')
            onOctave(jobs, workers, servers, take);
        else
            onPool(jobs, take);
        end
        return
    catch problem
        left = keptRows('left');
        batchProgress(-1, 0);
        servers = []; % of several, one that was lost takes the connections with it
        warning('Verdanth:warning', ['CAPE-OPEN: A worker was lost (%s); others calculate what it left, ' ...
                                     '%d rows are to be done'], problem.message, sum(left(:, 2) - left(:, 1) + 1));
    end
end
end

function jobs = jobsFor(job, given, left, secondsPerRow, workers)
jobs = {};
rows = sum(left(:, 2) - left(:, 1) + 1);
count = max(1, min(floor(0.25 / secondsPerRow), ceil(rows / (4 * workers)))); % nobody is to wait for the last ones
for k = 1:size(left, 1)
    for first = left(k, 1):count:left(k, 2)
        job.first = first;
        job.given = [sliceOfRows(given(1:6), first, min(first + count - 1, left(k, 2))), {job.names}];
        jobs{end + 1} = job; %#ok<AGROW>
    end
end
end

function onOctave(jobs, workers, servers, take)
if exist('OCTAVE_VERSION', 'builtin')
    try
        if isempty(servers)
            together = @(one, other) taken(one, other, take);
            together(parcellfun(workers, @capeopen.internal.flashBlock, jobs, 'CumFunc', together), []);
        else
            reval(pathForServers(), servers);
            for k = 1:4 * workers:numel(jobs) % what servers have done comes back with the last of a call
                some = jobs(k:min(k + 4 * workers - 1, end));
                outcomes = netcellfun(servers, @(job) capeopen.internal.flashBlock(job), some, 'UniformOutput', false);
                cellfun(take, outcomes);
            end
        end
    catch problem
        interrupted = ~isempty(strfind(problem.message, 'could not receive')) && ~anyWasLost(servers);
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

function kept(outcome, given)
if ~isempty(outcome) && ~isempty(outcome.values)
    last = outcome.first + size(outcome.values, 1) - 1;
    notes = notesOfWarnings(outcome.shown, outcome.values, sliceOfRows(given, outcome.first, last));
    if ~isempty(outcome.texts)
        texts = cell(size(outcome.values, 1), 1);
        texts(outcome.rows) = outcome.texts;
        notes = notesOf(texts);
    end
    keptRows('add', outcome.batch, outcome.first, outcome.values, notes);
end
end

function onPool(jobs, take)
outcomes = cell(1, numel(jobs));
queue = [];
if exist('parallel.pool.DataQueue', 'class')
    queue = parallel.pool.DataQueue();
    afterEach(queue, take); % what is done outlives an interrupt and the loss of a worker
end
parfor k = 1:numel(jobs)
    outcomes{k} = capeopen.internal.flashBlock(jobs{k});
    if ~isempty(queue)
        send(queue, outcomes{k});
    end
end
cellfun(take, outcomes);
end
