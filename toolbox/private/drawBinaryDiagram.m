function drawBinaryDiagram(handle, compound, vapors, liquids, unit, axisTitle, heading)
%drawBinaryDiagram  Lines of two compounds in the current axes, from branches of binaryPhaseDiagram.
%
%   COMPOUND is the name of the one whose fractions they are. Levels are drawn in UNIT. Where two liquids and a vapor
%   are together, a horizontal line joins all three.
names = {'boiling liquid', 'saturated vapor', 'two liquids', 'three phases'};
styles = {'b-', 'r-', 'g-', 'k--'};
data = cell(1, 4);
mass = capeopen.internal.isMassBasis();
for branch = vapors
    [x, level, y] = branch.smooth{:};
    data{1} = [data{1}; x, level; NaN, NaN];
    data{2} = [data{2}; y, level; NaN, NaN];
end
for branch = liquids
    [x, level, y] = branch.smooth{:};
    data{3} = [data{3}; x, level; NaN, NaN; y, level; NaN, NaN];
end
for k = 2:numel(vapors)
    if abs(vapors(k).level(1) / vapors(k - 1).level(end) - 1) < 1e-6
        places = [vapors(k - 1).x(end), vapors(k).x(1), vapors(k).y(1)];
        data{4} = [data{4}; [min(places); max(places)], vapors(k).level(1) * [1; 1]; NaN, NaN];
    end
end
shown = find(~cellfun(@isempty, data));
drawn = [cellfun(@(rows) rows(:, 1), data(shown), 'UniformOutput', false)
         cellfun(@(rows) rows(:, 2) / unit, data(shown), 'UniformOutput', false)
         styles(shown)];
plot(drawn{:});
xlim([0, 1]);
words = {'mole', 'mass'};
nameAxes(sprintf('%s fraction of %s', words{1 + mass}, compound), axisTitle, ...
         sprintf('%s (%s)', heading, packageName(handle)), names(shown));
end
