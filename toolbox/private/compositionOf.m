function Z = compositionOf(handle, amounts)
%compositionOf  A composition, one column for each compound of a package, from names and amounts.
%
%   Z = compositionOf(handle, amounts)
%
%   AMOUNTS is a struct with a field for each compound, a cell array {name, amount, name, amount, ...}, or one
%   {names, amounts}. Compounds that are not named get 0. An amount may be a column, for as many rows, the same number
%   in all columns. Nothing is normalized.
if isstruct(amounts)
    names = fieldnames(amounts);
    values = struct2cell(amounts);
elseif numel(amounts) == 2 && iscellstr(amounts{1}) && isnumeric(amounts{2}) %#ok<ISCLSTR>
    names = amounts{1};
    values = amounts{2};
    if size(values, 2) ~= numel(names) && size(values, 1) == numel(names)
        values = values.';
    end
    if size(values, 2) ~= numel(names)
        error('Verdanth:error', '%d names of compounds, but %d amounts', numel(names), size(values, 2));
    end
    values = num2cell(values, 1);
else
    names = amounts(1:2:end);
    values = amounts(2:2:end);
end
if numel(names) ~= numel(values) || ~iscellstr(names) || ~all(cellfun(@isnumeric, values)) %#ok<ISCLSTR>
    error('Verdanth:error', 'A composition by names has a name and an amount for each compound');
end
index = compoundIndex(handle, names);
if numel(unique(index)) < numel(index)
    twice = find(accumarray(index(:), 1) > 1, 1);
    error('Verdanth:error', 'The compound "%s" is there twice', names{find(index == twice, 1, 'last')});
end
counts = cellfun(@numel, values(:));
rows = max([1; counts]);
odd = find(counts ~= 1 & counts ~= rows, 1);
if ~isempty(odd)
    error('Verdanth:error', 'The compound "%s" has %d amounts in a composition of %d %s', names{odd}, counts(odd), ...
          rows, plural(rows, 'row'));
end
Z = zeros(rows, numel(capeOpenCompoundList(handle)));
for k = 1:numel(index)
    Z(:, index(k)) = double(values{k}(:));
end
end
