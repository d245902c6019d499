function lines = linesAcross(handle, Z, held, values, other, range, name)
%linesAcross  A property of a mixture along lines of constant temperature or pressure, by the package's flashes.
%
%   lines = linesAcross(handle, Z, held, values, other, range, name)
%
%   HELD and OTHER are 'Temperature' and 'Pressure' or the other way round; for each of VALUES the other one takes the
%   values RANGE. LINES has for each a double M-by-2, property and other one. Where a single compound boils, the line
%   has both saturated states, between which it is level.
lines = cell(1, numel(values));
range = range(:);
order = [0; 1]; % with rising temperature the liquid comes first
if strcmp(held, 'Temperature')
    order = [1; 0];
end
for k = 1:numel(values)
    found = capeOpenMultiFlash(handle, Z, held, values(k), other, range, 'Unspecified', name);
    there = ~isnan(found);
    rows = [found(there), range(there)];
    if sum(Z > 0) == 1
        [level, ends] = capeOpenMultiFlash(handle, Z, held, values(k), 'vaporFraction', order, 'Unspecified', ...
                                           {other, name});
        level = level(1); % the other is the same but for rounding
        near = 1e-6 * level; % as is the end of the range, where it is that of the dome
        if level > range(1) - near && level < range(end) + near && ~any(isnan(ends))
            rows = [rows(rows(:, 2) < level - near, :); ends, [level; level]; rows(rows(:, 2) > level + near, :)];
        end
    end
    lines{k} = rows;
end
end
