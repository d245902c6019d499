function checkSummary(report)
%checkSummary  Shows the report of a check in the command window.
fprintf('%s: %s, %d %s in %.1f s (%s, seed %g)\n', report.package, verdictText(report), sum([report.checks.asked]), ...
        plural(sum([report.checks.asked]), 'comparison'), report.seconds, report.level, report.seed);
for check = report.checks
    result = 'passed';
    if check.failures > 0
        result = sprintf('%d %s', check.failures, plural(check.failures, 'failure'));
    elseif check.notes > 0
        result = sprintf('%d %s', check.notes, plural(check.notes, 'note'));
    end
    fprintf('  %-24s %-12s %7d asked %6.1f s\n', check.name, result, check.asked, check.seconds);
end
calls(report);
for finding = report.findings
    fprintf('%s (%s): %s\n', finding.severity, finding.check, finding.what);
    if ~isempty(finding.where)
        fprintf('    at %s%s\n', finding.where, more(finding));
    end
    if isfinite(finding.limit)
        fprintf('    off by %.3g, the limit is %.3g\n', finding.size, finding.limit);
    end
end
end

function calls(report)
times = report.times;
if ~isempty(times)
    [~, order] = sort([times.median]);
    [~, worst] = max([times.worst]);
    fprintf('Calls take %s (%s) to %s (%s), the worst %s (%s)\n', durationText(times(order(1)).median), ...
            times(order(1)).kind, durationText(times(order(end)).median), times(order(end)).kind, ...
            durationText(times(worst).worst), times(worst).kind);
end
memory = report.memory;
if ~isempty(memory) && ~isempty(memory(1).why)
    fprintf('Memory was not measured: %s\n', memory(1).why);
elseif ~isempty(memory)
    [most, k] = max([memory.perCall]);
    fprintf('Memory grows by %.0f bytes a call at most (%s, over %d calls)\n', max(0, most), memory(k).kind, ...
            memory(k).calls);
end
end

function text = more(finding)
text = '';
if finding.count > 1
    text = sprintf(', and in %d of %d states', finding.count, finding.asked);
end
end
