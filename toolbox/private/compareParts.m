function part = compareParts(series, other, list)
%compareParts  Differences of values from others, as parts of what their terms are of the size of.
%
%   That is the larger of both, and for what is zero somewhere a natural size beside it: R T for an energy, and for a
%   derivative the property itself, which is among those in LIST, over T or P. Fractions are told as they are. Where
%   one alone is a number, or there are more of them, the part is infinite; where a flash finds other phases, that is
%   told once, as a part of 1.
values = series.values;
if iscell(values) && iscell(other)
    part = double(~strcmp(values, other));
    return
elseif iscell(values) || iscell(other)
    part = Inf(size(values));
    return
elseif any(size(values) ~= size(other))
    part = Inf(size(values, 1), 1);
    part(all(isnan(values), 2) & all(isnan(other), 2)) = 0;
    return
end
if strcmp(series.kind, 'flash')
    part = abs(values - other);
    part(isnan(part)) = 0; % another phase, which is told
    return
end
same = values == other | (isnan(values) & isnan(other));
part = zeros(size(values));
if all(same(:))
    return
end
scale = max(abs(values), abs(other));
if strcmp(series.kind, 'phase')
    scale = bsxfun(@plus, scale, 1e-9 * max(scale, [], 2)); % a value that is nothing beside the others of its row
end
scale = bsxfun(@plus, scale, termSize(series, list));
part = abs(values - other) ./ scale;
part(isnan(part)) = Inf;
part(same) = 0;
end

function scale = termSize(series, list)
scale = 0;
[name, derivative] = strtok(series.property, '.');
if isempty(series.T)
    return
end
sizes = {'entropy(F|NF)?$', 'R'
         '(energy|enthalpy)(F|NF)?$', 'R * T'
         '^excessVolume$', 'R * T ./ P'
         '^log', '1'};
row = find(~cellfun(@isempty, regexpi(name, sizes(:, 1))), 1);
if ~isempty(row)
    scale = evaluated(sizes{row, 2}, {}, {}, series.T, series.P, [], 8.31446261815324);
end
if isempty(derivative)
    return
end
base = list(strcmpi({list.property}, name) & strcmp({list.phase}, series.phase));
if ~isempty(base) && isnumeric(base(1).values)
    [found, same] = ismember([series.T, series.P, series.X], [base.T, base.P, base.X], 'rows');
    own = zeros(size(found));
    own(found) = max(abs(base.values(same(found), :)), [], 2);
    own(~isfinite(own)) = 0;
    scale = scale + own;
end
if strcmpi(derivative, '.Dtemperature')
    scale = scale ./ series.T;
elseif strcmpi(derivative, '.Dpressure')
    scale = scale ./ series.P;
end
end
