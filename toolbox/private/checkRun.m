function report = checkRun(handle, opening, options, table, package)
%checkRun  Does the checks of a table, and gives the report of what they found.
%
%   PACKAGE are the names by which workers open it, {} if there are to be none.
restore = moleBasis(); %#ok<NASGU>
silent = withoutWarnings(); %#ok<NASGU>
begun = tic();
report = struct('package', capeOpenName(handle), 'opening', opening, 'verdict', 'passed', 'findings', [], ...
                'checks', struct('name', {}, 'title', {}, 'asked', {}, 'skipped', {}, 'failures', {}, 'notes', {}, ...
                                 'seconds', {}, 'bars', {}), ...
                'compounds', {capeOpenCompoundList(handle)}, 'level', lower(options.Level), 'seed', options.Seed, ...
                'flashes', [], 'pairs', [], 'times', [], 'memory', [], 'complete', false, 'seconds', 0);
tally = checkTally('');
report.findings = tally.findings;
checkKept('keep', report);
ending = onCleanup(@() checkKept('stopped'));
s = checkSample(handle, opening, options, [], @(flashes, count) sampled(report, flashes, count));
report.flashes = s.flashes;
checkKept('keep', report);
names = table(:, 1).';
if ~isempty(package)
    onWorkersFirst(s, names, package);
    report = checkKept('last');
end
for name = names(~ismember(names, {report.checks.name}))
    progressLine(sprintf('%d of %d: %s', numel(report.checks) + 1, numel(names), name{1}));
    report = checkAdded(report, checkPart(s, name{1}));
    report.seconds = toc(begun);
    checkKept('keep', report);
end
report.seconds = toc(begun);
report.complete = true;
progressLine('');
checkKept('keep', report);
clear('ending');
end

function sampled(report, flashes, count)
progressLine(sprintf('flash %d of %d of the sample', numel(flashes), count));
report.flashes = flashes;
checkKept('keep', report);
end

% What measures time or memory has the machine for itself, and comes afterwards; so does what a lost worker has left.
% The longest come first, that no worker is left with them at the end.
function onWorkersFirst(s, names, package)
workers = numberOfWorkers([]);
names = names(~ismember(names, {'times', 'manyCalls'}));
if workers < 2 || numel(names) < 2
    return
end
long = ismember(names, {'moleDerivatives', 'fractionDerivatives', 'boundaries', 'stability'});
names = [names(long), names(~long)];
jobs = cellfun(@(name) struct('name', name, 'sample', s, 'package', {package}), names, 'UniformOutput', false);
progressLine(sprintf('%d checks by %d workers', numel(jobs), workers));
run = checkKept('run');
ending = onCleanup(@() checkKept('run')); %#ok<NASGU>
try
    onWorkers(@checkOnWorker, jobs, workers, [], @(part) checkKept('add', part, run));
catch problem
    warning('Verdanth:warning', 'CAPE-OPEN: A worker was lost (%s); its checks are done without it', problem.message);
end
end
