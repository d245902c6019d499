function [x, y, vaporFraction, across, quality] = domeDiagram(kind, drawn, handle, Z, Pmin, values, fractions)
%domeDiagram  Diagram of a property over pressure or temperature: dome of two phases, lines across it, quality lines.
%
%   [x, y, vaporFraction, across, quality] = domeDiagram(kind, drawn, handle, Z, Pmin, values, fractions)
%
%   KIND has the fields property; ordinate, 'Pressure' or 'Temperature'; valuesOf and rangeOf, functions of the lowest
%   pressure and of the dome's temperatures and pressures that give what the lines across it hold, unless VALUES says
%   so, and where their points lie; refusal, the error for VALUES that are none; label, unit and draw of the ordinate,
%   and lines, the name of those across. What may be left out and the results are those of capeOpenPh and capeOpenTs;
%   DRAWN tells whether to draw.
if nargin < 5
    Pmin = [];
end
if nargin < 6
    values = [];
end
if nargin < 7
    fractions = [0.2, 0.4, 0.6, 0.8];
end
Z = checkedMixture(handle, Z);
Pmin = checkedPressure(Pmin);
values = checkedNumbers(values, @(v) v > 0 & v < Inf, kind.refusal);
fractions = checkedFractions(fractions);
quiet = withoutWarnings();
[dome, reasons, critical] = saturationDome(handle, Z, Pmin, kind.property);
[x, T, P, vaporFraction] = lineColumns(dome, 'value', 'T', 'P', 'vaporFraction');
if isempty(values)
    values = kind.valuesOf(Pmin, T, P);
end
conditions = {'Temperature', 'Pressure'};
column = find(strcmp(conditions, kind.ordinate));
across = linesAcross(handle, Z, conditions{3 - column}, values, kind.ordinate, kind.rangeOf(Pmin, T, P), kind.property);
rows = qualityLines(handle, Z, linspace(min(T), max(T), 100), critical, fractions, kind.property);
quality = cellfun(@(row) row(row(:, 2) > Pmin * (1 - 1e-6), [3, column]), rows, 'UniformOutput', false);
quiet = []; %#ok<NASGU>
warnOfOpenEnds('phase envelope', reasons);
columns = {T, P};
y = columns{column};
if drawn
    drawWithDome(handle, Z, [x, y, vaporFraction], across, quality, kind);
end
end
