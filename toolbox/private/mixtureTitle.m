function text = mixtureTitle(handle, Z)
%mixtureTitle  What a mixture is made of, the most first, and the package that describes it.
names = capeOpenCompoundList(handle);
[~, order] = sort(-Z(:).');
order = order(Z(order) > 0);
shown = order(1:min(3 - (numel(order) > 3), numel(order)));
parts = cell(1, numel(shown));
for k = 1:numel(shown)
    parts{k} = sprintf('%.3g %s', Z(shown(k)), names{shown(k)});
end
text = strjoin(parts, ', ');
if numel(order) == 1
    text = names{order};
elseif numel(order) > numel(shown)
    text = [text, ', ...'];
end
text = sprintf('%s (%s)', text, packageName(handle));
end
