function drawWithDome(handle, Z, dome, across, quality, kind)
%drawWithDome  Diagram of a property and temperature or pressure in the current axes.
%
%   DOME are rows of property, ordinate and vapor fraction, parted by rows of NaN, ACROSS and QUALITY cells with rows of
%   property and ordinate. KIND has the fields property, lines (the name of those across), label and unit of the
%   ordinate, and draw, plot or semilogy.
names = {'dew points', 'bubble points', 'second liquid', kind.lines, 'vapor fractions'};
styles = {'r-', 'b-', 'g-', 'k-', 'k:'};
data = [partsByKind(dome(:, 1:2), dome(:, 3)), cell(1, 2)];
groups = {across, quality};
for group = 1:2
    for k = 1:numel(groups{group})
        data{3 + group} = [data{3 + group}; groups{group}{k}; NaN, NaN];
    end
end
shown = find(cellfun(@(rows) any(~isnan(rows(:))), data));
drawn = [cellfun(@(rows) rows(:, 1) / 1000, data(shown), 'UniformOutput', false)
         cellfun(@(rows) rows(:, 2) / kind.unit, data(shown), 'UniformOutput', false)
         styles(shown)];
kind.draw(drawn{:});
nameAxes(sprintf('%s / (k%s)', kind.property, capeOpenPropUnit(kind.property)), kind.label, ...
         mixtureTitle(handle, Z), names(shown));
end
