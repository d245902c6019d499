function quality = qualityLines(handle, Z, T, critical, fractions, name)
%qualityLines  Lines of constant vapor fraction of a mixture, by the package's flashes.
%
%   quality = qualityLines(handle, Z, T, critical, fractions, name)
%
%   At the temperatures T, ascending, pressures are asked for up along the line and, above the temperature CRITICAL,
%   back along its retrograde part; there is none if CRITICAL is NaN. QUALITY has for each of FRACTIONS a double M-by-2
%   with temperatures and pressures, and a third column with the property of this name, if one is given.
quality = cell(1, numel(fractions));
values = {};
T = T(:);
names = {'Pressure'};
if nargin > 5
    names{2} = name;
end
for k = 1:numel(fractions)
    rows = zeros(0, 1 + numel(names));
    there = T;
    for kind = {'Normal', 'Retrograde'}
        if ~isempty(there)
            [values{1:numel(names)}] = capeOpenMultiFlash(handle, Z, 'Temperature', there, 'vaporFraction', ...
                                                          fractions(k), kind{1}, names);
            found = [there, values{:}];
            rows = [rows; found(~any(isnan(found), 2), :)]; %#ok<AGROW>
        end
        there = flipud(rows(rows(:, 1) > critical, 1));
    end
    quality{k} = rows;
end
end
