function lines = linesAcross(handle, Z, held, values, other, range, name)
%linesAcross  A property of a mixture along lines of constant temperature or pressure, by the package's flashes.
%
%   lines = linesAcross(handle, Z, held, values, other, range, name)
%
%   HELD and OTHER are 'Temperature' and 'Pressure' or the other way round; for each of VALUES the other one takes the
%   values RANGE. LINES has for each a double M-by-2, property and other one.
lines = cell(1, numel(values));
range = range(:);
for k = 1:numel(values)
    found = capeOpenMultiFlash(handle, Z, held, values(k), other, range, 'Unspecified', name);
    there = ~isnan(found);
    lines{k} = [found(there), range(there)];
end
end
