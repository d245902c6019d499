function text = rowRanges(first, last)
%rowRanges  Names rows, like '8 rows (3, 7-12, 40)', from the FIRST to the LAST of each stretch; of many, some.
most = 8;
[first, order] = sort(first(:));
last = last(order);
reach = last(:);
for k = 2:numel(reach)
    reach(k) = max(reach(k), reach(k - 1));
end
new = [true; first(2:end) > reach(1:end - 1) + 1];
starts = first(new);
ends = reach([new(2:end); true]);
count = sum(ends - starts + 1);
parts = cell(1, min(most, numel(starts)));
for k = 1:numel(parts)
    if starts(k) == ends(k)
        parts{k} = sprintf('%d', starts(k));
    else
        parts{k} = sprintf('%d-%d', starts(k), ends(k));
    end
end
if numel(starts) > most
    parts{end + 1} = sprintf('..., %d', ends(end));
end
text = sprintf('%d rows (%s)', count, strjoin(parts, ', '));
if count == 1
    text = ['row ', parts{1}];
end
end
