function text = numbersText(name, values)
%numbersText  The line that sets a variable to these numbers, to the bit; rows that are mostly zero by their others.
some = find(values ~= 0);
if numel(values) == 1
    text = sprintf('%s = %.17g;', name, values);
elseif size(values, 1) > 1
    rows = cellfun(@(row) listed(row), num2cell(values, 2), 'UniformOutput', false);
    text = sprintf('%s = [%s];', name, strjoin(rows.', '; '));
elseif 2 * numel(some) < numel(values)
    text = sprintf('%s = zeros(1, %d); %s([%s]) = [%s];', name, numel(values), name, listed(some), ...
                   listed(values(some)));
else
    text = sprintf('%s = [%s];', name, listed(values));
end
end

function text = listed(values)
text = strtrim(sprintf('%.17g ', values));
end
