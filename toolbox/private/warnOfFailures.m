function warnOfFailures(notes, given)
%warnOfFailures  One warning for all rows of a batch that were warned of: how many, which, and the package's words.
%
%   NOTES are those of flashRows, GIVEN the arguments of capeOpenMultiFlash behind its handle.
rows = batchRows(given);
flashes = strncmp(notes.texts, 'Flash failed at ', 16);
lines = {};
if any(flashes)
    lines{1} = sprintf('Flash failed in %d of %d rows, which specify %s and %s:', sum(flashes), rows, given{[2, 4]});
    words = regexprep(notes.texts(flashes), '^Flash failed at \S+, \S+: ', '');
    lines = [lines, groups(words, notes.rows(flashes), notes.rows(flashes))];
end
others = [notes.texts(~flashes); notes.words];
if ~isempty(others)
    lines{end + 1} = sprintf('Other warnings of the package, %d in %d rows:', numel(others), rows);
    lines = [lines, groups(others, [notes.rows(~flashes); notes.first], [notes.rows(~flashes); notes.last])];
end
if ~isempty(lines)
    lines{end + 1} = 'One more output gives a text for each row.';
    warning('Verdanth:warning', '%s', ['CAPE-OPEN: ', strjoin(lines, '\n')]);
end
end

% A line for each text; those that differ in numbers alone count as one.
function lines = groups(words, first, last)
most = 10;
kinds = regexprep(words, '[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?', '#');
[~, at, kind] = unique(kinds, 'first');
[~, order] = sort(at);
lines = cell(1, numel(order));
for k = 1:numel(order)
    mine = find(kind == order(k));
    example = '';
    if numel(unique(words(mine))) > 1
        example = ', for example';
    end
    lines{k} = sprintf('  %s%s: %s', rowRanges(first(mine), last(mine)), example, words{mine(1)});
end
if numel(lines) > most
    rest = sum(ismember(kind, order(most + 1:end)));
    lines = [lines(1:most), {sprintf('  and %d others', rest)}];
end
end
