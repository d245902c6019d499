function [rows, asked] = compareRows(first, second, compounds, tolerance)
%compareRows  Where the values of two packages differ by more than a part of their size, the largest differences first.
%
%   FIRST and SECOND have the values of one and of the other in the same order. What belongs to compounds has a row for
%   each of them; what belongs to phases and flashes one for each region, a third of the temperatures by a third of the
%   pressures, on a logarithmic scale.
rows = struct('kind', {}, 'property', {}, 'phase', {}, 'compound', {}, 'T', {}, 'P', {}, 'count', {}, 'asked', {}, ...
              'size', {}, 'typical', {}, 'where', {}, 'values', {});
asked = 0;
flashes = first(strcmp({first.kind}, 'flash'));
for k = 1:numel(first)
    if isempty(second(k).values)
        continue
    end
    part = compareParts(first(k), second(k).values, first);
    asked = asked + numel(part);
    if all(part(:) <= tolerance)
        continue
    end
    groups = groupsOf(first(k), part, vertcat(flashes.T), vertcat(flashes.P));
    for group = reshape(unique(groups(part > tolerance)), 1, [])
        beyond = part > tolerance & groups == group;
        rows(end + 1) = rowOf(first(k), second(k).values, compounds, part, beyond); %#ok<AGROW>
        rows(end).asked = sum(groups(:) == group);
    end
end
[~, order] = sort(-[rows.size]);
rows = rows(reshape(order, 1, []));
end

function groups = groupsOf(series, part, T, P)
if isempty(series.X)
    groups = repmat(1:size(part, 2), size(part, 1), 1);
    return
end
third = @(x, all) min(2, floor(3 * (x - min(all)) / max(max(all) - min(all), eps)));
groups = repmat(3 * third(series.T, T) + third(log(series.P), log(P)), 1, size(part, 2));
end

function row = rowOf(series, other, compounds, part, beyond)
worst = part;
worst(~beyond) = -1;
[~, worst] = max(worst(:));
[r, c] = ind2sub(size(part), worst);
n = numel(compounds);
row = struct('kind', series.kind, 'property', series.property, 'phase', series.phase, 'compound', '', ...
             'T', rangeOf(series.T, beyond), 'P', rangeOf(series.P, beyond), 'count', sum(beyond(:)), 'asked', 0, ...
             'size', part(worst), 'typical', median(part(beyond)), 'where', '', ...
             'values', {{valueText(series.values, part, r, c), valueText(other, part, r, c)}});
if size(part, 2) == n && (n > 1 || isempty(series.X))
    row.compound = compounds{c};
elseif size(part, 2) == n * n && n > 1
    [i, j] = ind2sub([n, n], c);
    row.compound = [compounds{i}, ', ', compounds{j}];
end
if ~isempty(series.X)
    row.where = stateText(struct('phase', '', 'T', series.T, 'P', series.P, 'X', series.X, 'compounds', ...
                                 {compounds}), r);
elseif ~isempty(series.T)
    row.where = sprintf('%.6g K', series.T(r, c));
elseif ~isempty(series.P)
    row.where = sprintf('%.6g Pa', series.P(r, c));
end
end

function range = rangeOf(values, beyond)
range = [];
if size(values, 2) == size(beyond, 2)
    range = values(beyond);
elseif ~isempty(values)
    range = values(any(beyond, 2), :);
end
if ~isempty(range)
    range = [min(range(:)), max(range(:))];
end
end

function text = valueText(values, part, r, c)
if any(size(values) ~= size(part))
    text = sprintf('%d %s', size(values, 2), plural(size(values, 2), 'value'));
elseif iscell(values)
    text = values{r, c};
else
    text = sprintf('%.9g', values(r, c));
end
end
