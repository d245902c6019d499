function report = checkRun(handle, opening, options, table)
%checkRun  Does the checks of a table, one after the other, and gives the report of what they found.
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
for k = 1:size(table, 1)
    progressLine(sprintf('%d of %d: %s', k, size(table, 1), table{k, 1}));
    since = tic();
    tally = checkTally(table{k, 1});
    try
        tally = table{k, 3}(s, tally);
    catch problem
        tally = checkFound(tally, 'failure', ['The check ended with: ', problem.message], '', ...
                           {opening; sprintf('capeOpenCheck(handle, ''Checks'', {''%s''});', table{k, 1})});
    end
    if ~isempty(tally.findings) % Octave forgets the fields of nothing and nothing
        report.findings = [report.findings, tally.findings];
    end
    for part = {'pairs', 'times', 'memory'}
        if isfield(tally, part{1})
            report.(part{1}) = tally.(part{1});
        end
    end
    report.checks(k) = struct('name', table{k, 1}, 'title', table{k, 2}, 'asked', tally.asked, ...
                              'skipped', tally.skipped, 'failures', numberOf(tally, 'failure'), ...
                              'notes', numberOf(tally, 'note'), 'seconds', toc(since), 'bars', tally.bars);
    report.verdict = verdictOf(report.checks);
    report.seconds = toc(begun);
    checkKept('keep', report);
end
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

function count = numberOf(tally, severity)
count = sum(strcmp({tally.findings.severity}, severity));
end

function verdict = verdictOf(checks)
verdict = 'passed';
if any([checks.failures])
    verdict = 'failures';
elseif any([checks.notes])
    verdict = 'notes';
end
end
