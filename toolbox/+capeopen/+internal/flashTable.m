function text = flashTable(result, compounds, units)
%capeopen.internal.flashTable  The result of a flash as text: a column for each phase, a row for each compound.
%
%   UNITS is a struct with the unit of each field that has one.
details = setdiff(fieldnames(result), {'phases', 'fractions', 'compositions', 'T', 'P'}, 'stable');
titles = cellfun(@(name) strtrim(sprintf('%s  %s', name, units.(name))), details(:), 'UniformOutput', false);
names = [{'fraction'}; compounds(:); titles];
rest = cellfun(@(name) result.(name), details(:), 'UniformOutput', false);
values = [result.fractions(:).'; result.compositions.'; vertcat(rest{:})];
formats = [repmat({'%*.6f'}, 1 + numel(compounds), 1); repmat({'%*.6g'}, numel(titles), 1)];
width = max(cellfun(@numel, names)) + 2;
columns = max(cellfun(@numel, result.phases), 9 + 3 * ~isempty(titles)) + 2;
lines = cell(1, numel(names) + 2);
lines{1} = sprintf('  T = %.6g %s, P = %.6g %s', result.T, units.T, result.P, units.P);
cells = arrayfun(@(k) sprintf('%*s', columns(k), result.phases{k}), 1:numel(columns), 'UniformOutput', false);
lines{2} = [blanks(width + 2), cells{:}];
for k = 1:numel(names)
    cells = arrayfun(@(j) sprintf(formats{k}, columns(j), values(k, j)), 1:numel(columns), 'UniformOutput', false);
    lines{k + 2} = [sprintf('  %-*s', width, names{k}), cells{:}];
end
text = sprintf('%s\n', lines{:});
end
