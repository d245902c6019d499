function [bubbles, others] = threePhaseLines(model, z, edges, Pmin, Pmax)
%threePhaseLines  Where a third phase appears in a mixture of two.
%
%   [bubbles, others] = threePhaseLines(model, z, edges, Pmin, Pmax)
%
%   They begin at EDGES, in each row two points (see stableCurve) that share temperature and pressure, or, if there are
%   none, where two liquids boil at PMIN by the package's flashes. BUBBLES are the lines on which the third phase is a
%   vapor, OTHERS those on which it is a liquid; both as in curveOf, those of BUBBLES with falling pressure.
n = numel(z);
system = threePhaseSystem(model, z, [10, Pmin; 5000, Pmax]);
starts = cell(1, 0);
for k = 1:size(edges, 1)
    for turned = [1, 2]
        second = edges{k, turned};
        new = edges{k, 3 - turned};
        v = [second.v(1:n), new.v(1:n), 0, second.v(n + 1:n + 2)];
        point = solvePoint(system, v, 2 * n + 1, [second.phases(1), new.phases(2), second.phases(2)], 20);
        if ~isempty(point)
            point.tangent = point.tangent * sign(point.tangent(2 * n + 1));
            starts{end + 1} = point; %#ok<AGROW>
        end
    end
end
if isempty(edges)
    for P = Pmin * [1, 3, 10, 30]
        point = boilingLiquids(system, model, z, P);
        if ~isempty(point)
            starts = {point};
            break
        end
    end
end
bubbles = curveOf([], []);
others = bubbles;
for k = 1:numel(starts)
    points = stablePart(system, model, z, starts{k});
    if isempty(edges) && starts{k}.v(end) > log(Pmin)
        down = starts{k};
        down.tangent = -down.tangent;
        down = stablePart(system, model, z, down);
        for p = 1:numel(down)
            down(p).tangent = -down(p).tangent;
        end
        points = [down(end:-1:2), points]; %#ok<AGROW>
    end
    if isempty(points)
        continue
    end
    densities = vertcat(points.densities);
    lighter = densities(:, 2) < min(densities(:, [1, 3]), [], 2);
    change = [0; find(diff(lighter)); numel(lighter)];
    for part = 1:numel(change) - 1
        rows = change(part) + 1:change(part + 1);
        line = curveOf(points(rows), NaN(numel(rows), 1));
        if lighter(rows(1)) && ~isempty(bubbles) && all(ismember(line.P, vertcat(bubbles.P)))
            continue
        elseif lighter(rows(1))
            line.vaporFraction(:) = 0;
            if line.P(end) > line.P(1)
                line = turnedCurve(line);
            end
            bubbles(end + 1) = line; %#ok<AGROW>
        else
            others(end + 1) = line; %#ok<AGROW>
        end
    end
end
end

function points = stablePart(system, model, z, start)
points = traceCurve(system, start, 200);
points = points(1:stableUpTo(model, z, points));
end

% The last point before which a flash of the mixture with some of the new phase finds all three again. With two
% compounds three phases have no amounts; there it has to find two of them, next to the point.
function last = stableUpTo(model, z, points)
share = 0.3;
n = numel(z);
V = vertcat(points.v);
K = exp(V(:, 1:n));
part = V(:, 2 * n + 1);
A = z ./ (1 + part .* (K - 1));
C = A .* exp(V(:, n + 1:2 * n));
C = C ./ sum(C, 2);
T = exp(V(:, end - 1));
if n == 2
    share = 0;
    T = T * (1 - 1e-6);
end
X = zeros(numel(points), model.count);
X(:, model.compounds) = (1 - share) * z + share * C;
volume = capeOpenMultiFlash(model.handle, X, 'Temperature', T, 'Pressure', exp(V(:, end)), 'Unspecified', 'volume');
densities = vertcat(points.densities);
expected = (1 - share) * ((1 - part) ./ densities(:, 1) + part ./ densities(:, 3)) + share ./ densities(:, 2);
near = abs(log(densities(:, 1) ./ densities(:, 2))) < 0.3 | abs(log(densities(:, 3) ./ densities(:, 2))) < 0.3;
last = find([abs(volume ./ expected - 1) > 1e-3 + 0.02 * near; true], 1) - 1;
end

% The state in which two liquids begin to boil, from flashes just below and above; empty if there is none.
function point = boilingLiquids(system, model, z, P)
point = [];
n = numel(z);
X = zeros(1, model.count);
X(model.compounds) = z;
T = linspace(20, 700, 137).';
fraction = capeOpenMultiFlash(model.handle, X, 'Temperature', T, 'Pressure', P, 'Unspecified', 'vaporFraction');
first = find(fraction(2:end) > 0 & fraction(1:end - 1) == 0, 1, 'last');
if isempty(first)
    return
end
below = T(first);
above = T(first + 1);
try
    while above - below > 1e-3
        middle = (below + above) / 2;
        labels = capeOpenFlash(model.handle, X, 'Temperature', middle, 'Pressure', P, 'Unspecified');
        if any(strcmpi(labels, model.labels{1}))
            above = middle;
        else
            below = middle;
        end
    end
    [~, parts, liquids] = capeOpenFlash(model.handle, X, 'Temperature', below, 'Pressure', P, 'Unspecified');
    [labels, ~, phases] = capeOpenFlash(model.handle, X, 'Temperature', above, 'Pressure', P, 'Unspecified');
catch failure
    rethrowOthers(failure);
    return
end
vapor = phases(strcmpi(labels, model.labels{1}), :);
if size(liquids, 1) ~= 2 || isempty(vapor)
    return
end
fractions = log(max([liquids(:, model.compounds); vapor(1, model.compounds)], 1e-300));
distance = sum(abs(fractions(1:2, :) - [1; 1] * fractions(3, :)), 2);
first = 1 + (distance(2) < distance(1));
v = [fractions(3 - first, :) - fractions(first, :), fractions(3, :) - fractions(first, :), parts(3 - first), ...
     log(above), log(P)];
point = solvePoint(system, v, 2 * n + 3, [2, 1, 2], 30);
if ~isempty(point)
    point.tangent = point.tangent * sign(point.tangent(end));
end
end
