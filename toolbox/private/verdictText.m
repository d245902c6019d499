function text = verdictText(report)
%verdictText  The verdict of a report with its numbers.
failures = sum([report.checks.failures]);
notes = sum([report.checks.notes]);
text = 'passed';
if failures > 0
    text = sprintf('%d %s', failures, plural(failures, 'failure'));
    if notes > 0
        text = sprintf('%s, %d %s', text, notes, plural(notes, 'note'));
    end
elseif notes > 0
    text = sprintf('passed with %d %s', notes, plural(notes, 'note'));
end
if ~report.complete
    text = [text, ' (not complete)'];
end
end
