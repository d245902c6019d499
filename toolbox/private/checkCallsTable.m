function text = checkCallsTable(report)
%checkCallsTable  The table of times and memory in the page of a check, '' if neither was measured.
text = '';
kinds = callsOf(report);
if isempty(kinds)
    return
end
rows = cell(1, numel(kinds));
for k = 1:numel(kinds)
    one = kinds(k);
    cells = {escapedHtml(one.kind), numberText(one.calls), durationText(one.median), durationText(one.worst), ...
             durationText(one.call), durationText(one.row), numberText(one.counted), memoryText(one)};
    rows{k} = sprintf('<tr>%s</tr>\n', sprintf('<td>%s</td>', cells{:}));
end
titles = {'call', 'timed', 'median', 'worst', 'each call', 'each row', 'counted', 'memory'};
text = [sprintf('<h2>Time and memory</h2>\n<div class="wide">\n<table>\n<tr>%s</tr>\n', ...
                sprintf('<th>%s</th>', titles{:})), ...
        [rows{:}], ...
        sprintf(['</table>\n</div>\n<p>Median and worst are of calls for one state, with what else the machine ', ...
                 'did meanwhile; a batch takes the time of each call once, and that of each row for every state. ', ...
                 'Memory is what the process has grown by, for each of the calls that were counted.</p>\n'])];
end

% What either check has of a kind of call.
function kinds = callsOf(report)
none = struct('kind', '', 'calls', NaN, 'median', NaN, 'worst', NaN, 'call', NaN, 'row', NaN, 'counted', NaN, ...
              'perCall', NaN, 'why', '');
kinds = none(zeros(1, 0));
for one = reshape(report.times, 1, [])
    kinds(end + 1) = none; %#ok<AGROW>
    for name = fieldnames(one).'
        kinds(end).(name{1}) = one.(name{1});
    end
end
for one = reshape(report.memory, 1, [])
    k = find(strcmp({kinds.kind}, one.kind), 1);
    if isempty(k)
        k = numel(kinds) + 1;
        kinds(k) = none;
        kinds(k).kind = one.kind;
    end
    [kinds(k).counted, kinds(k).perCall, kinds(k).why] = deal(one.calls, one.perCall, one.why);
end
end

function text = numberText(number)
text = '';
if isfinite(number)
    text = sprintf('%d', number);
end
end

function text = memoryText(one)
text = '';
if isfinite(one.perCall)
    text = sprintf('%.0f bytes', max(0, one.perCall));
elseif ~isempty(one.why)
    text = ['not known: ', one.why];
end
end
