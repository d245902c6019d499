function quality = qualityLines(handle, Z, T, fractions)
%qualityLines  Lines of constant vapor fraction of a mixture, by the package's flashes.
%
%   quality = qualityLines(handle, Z, T, fractions)
%
%   At the temperatures T, ascending, pressures are asked for by both kinds of solution, up along the one and back along
%   the other. QUALITY has for each of FRACTIONS a double M-by-2 with temperatures and pressures.
quality = cell(1, numel(fractions));
T = T(:);
for k = 1:numel(fractions)
    rows = zeros(0, 2);
    for kind = {'Normal', 'Retrograde'}
        P = capeOpenMultiFlash(handle, Z, 'Temperature', T, 'vaporFraction', fractions(k), kind{1}, 'Pressure');
        if strcmp(kind{1}, 'Retrograde')
            P = flipud(P);
            T = flipud(T);
        end
        found = ~isnan(P);
        rows = [rows; T(found), P(found)]; %#ok<AGROW>
    end
    T = flipud(T);
    quality{k} = rows;
end
end
