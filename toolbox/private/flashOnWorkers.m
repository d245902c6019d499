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
        onWorkers(@(job) capeopen.internal.flashBlock(job), jobs, workers, servers, take);
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
