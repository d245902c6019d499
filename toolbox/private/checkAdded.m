function report = checkAdded(report, part)
%checkAdded  A report with what one check found: checks and findings in the order of the table.
if any(strcmp({report.checks.name}, part.name))
    return % workers may tell it twice
end
table = checkTable();
tally = part.tally;
if ~isempty(tally.findings) % Octave forgets the fields of nothing and nothing
    report.findings = [report.findings, tally.findings];
    report.findings = inOrder(report.findings, {report.findings.check}, table);
end
for field = {'pairs', 'times', 'memory'}
    if isfield(tally, field{1})
        report.(field{1}) = tally.(field{1});
    end
end
report.checks(end + 1) = struct('name', part.name, 'title', table{strcmp(table(:, 1), part.name), 2}, 'asked', ...
                                tally.asked, 'skipped', tally.skipped, 'failures', numberOf(tally, 'failure'), ...
                                'notes', numberOf(tally, 'note'), 'seconds', part.seconds, 'bars', tally.bars);
report.checks = inOrder(report.checks, {report.checks.name}, table);
report.verdict = verdictOf(report.checks);
end

function elements = inOrder(elements, names, table)
[~, place] = ismember(names, table(:, 1));
[~, order] = sort(place); % leaves the order of what is at the same place
elements = elements(order);
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
