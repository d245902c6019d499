function text = flashTable(result, compounds)
%capeopen.internal.flashTable  The result of a flash as text: a column for each phase, a row for each compound.
names = [{'fraction'}; compounds(:)];
values = [result.fractions(:), result.compositions].';
width = max(cellfun(@numel, names)) + 2;
columns = max(cellfun(@numel, result.phases), 9) + 2;
lines = cell(1, numel(names) + 2);
lines{1} = sprintf('  T = %.6g K, P = %.6g Pa', result.T, result.P);
cells = arrayfun(@(k) sprintf('%*s', columns(k), result.phases{k}), 1:numel(columns), 'UniformOutput', false);
lines{2} = [blanks(width + 2), cells{:}];
for k = 1:numel(names)
    cells = arrayfun(@(j) sprintf('%*.6f', columns(j), values(k, j)), 1:numel(columns), 'UniformOutput', false);
    lines{k + 2} = [sprintf('  %-*s', width, names{k}), cells{:}];
end
text = sprintf('%s\n', lines{:});
end
