function tally = checkCompared(tally, severity, what, deviation, limit, at, lines)
%checkCompared  Compares deviations with limits, in a row for each state, and adds a finding if any is beyond its limit.
%
%   AT has the fields phase (text), T, P (columns) and X (rows) of the states, or it is a cell array of names for
%   the rows, or [] where there is neither. LINES gives what to type for a row. A row without a limit could not be
%   asked and is only counted; a deviation that is not a number within one that has a limit is a finding.
limit = limit + zeros(size(deviation));
known = isfinite(limit);
tally.skipped = tally.skipped + sum(~any(known, 2));
ratio = abs(deviation) ./ limit;
ratio(isnan(ratio)) = Inf;
ratio(deviation == 0) = 0;
ratio(~known) = -1;
[ratio, column] = max(ratio, [], 2);
asked = sum(any(known, 2));
tally.asked = tally.asked + asked;
if asked == 0
    return
end
tally.bars(end + 1) = struct('what', what, 'ratio', max(ratio), 'asked', asked);
[worst, row] = max(ratio);
if worst <= 1
    return
end
failing = ratio > 1;
[T, P] = deal([]);
where = '';
if iscell(at)
    where = at{row};
elseif ~isempty(at)
    where = stateText(at, row);
    T = at.T(min(find(failing), end));
    P = at.P(min(find(failing), end));
end
tally = checkFound(tally, severity, what, where, lines(row), T, P, asked);
tally.findings(end).count = sum(failing);
tally.findings(end).size = abs(deviation(row, column(row)));
tally.findings(end).limit = limit(row, column(row));
end
