function drawEnvelope(lines, critical, threePhases, quality, heading)
%drawEnvelope  Phase envelope in the current axes, from curves of curveOf and rows of temperature and pressure.
names = {'dew points', 'bubble points', 'second liquid', 'third phase', 'vapor fractions', 'critical point'};
styles = {'r-', 'b-', 'g-', 'k--', 'k:', 'ko'};
data = cell(1, 6);
for line = lines
    [V, place] = smoothCurve(line, 8);
    parts = partsByKind([exp(V(:, end - 1)), exp(V(:, end)) / 1e5], line.vaporFraction(round(place)));
    for k = 1:3
        data{k} = [data{k}; parts{k}; NaN, NaN];
    end
end
for line = threePhases
    V = smoothCurve(line, 8);
    data{4} = [data{4}; exp(V(:, end - 1)), exp(V(:, end)) / 1e5; NaN, NaN];
end
for k = 1:numel(quality)
    data{5} = [data{5}; quality{k}(:, 1), quality{k}(:, 2) / 1e5; NaN, NaN];
end
if ~isnan(critical(1))
    data{6} = [critical(1), critical(2) / 1e5];
end
shown = find(cellfun(@(rows) any(~isnan(rows(:))), data));
drawn = [cellfun(@(rows) rows(:, 1), data(shown), 'UniformOutput', false)
         cellfun(@(rows) rows(:, 2), data(shown), 'UniformOutput', false)
         styles(shown)];
plot(drawn{:});
nameAxes('temperature / K', 'pressure / bar', heading, names(shown));
end
