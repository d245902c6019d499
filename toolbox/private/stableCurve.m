function [pieces, ended, edges, critical] = stableCurve(system, model, Z, start)
%stableCurve  Follows the boundary of a mixture, from branch to branch where another phase becomes the first to appear.
%
%   [pieces, ended, edges, critical] = stableCurve(system, model, Z, start)
%
%   START is a point of solvePoint with a tangent that leads away. Each of PIECES, a cell array, holds the points of one
%   branch, up to the one where the next begins; all are stable. ENDED is that of traceCurve for the last piece, -2 if
%   the mixture is unstable at START, -3 if it becomes unstable and no other branch is found. EDGES has in each row
%   the two points, one of each branch, at which two new phases appear at once. CRITICAL
%   holds the variables at the critical point of each piece, or NaN.
pieces = {};
ended = -3;
edges = cell(0, 2);
critical = zeros(0, numel(start.v));
while numel(pieces) < 8
    [points, ended] = traceCurve(system, start, 400);
    [summit, before, jump] = criticalPoint(system, points);
    if ~isempty(jump)
        points = points(1:jump);
        ended = 0;
    end
    [stable, vaporFraction] = splitsIntoBoth(model, Z, newFractions(points, Z), points);
    for k = find(isnan(stable)).'
        if isSeveral(model, Z, points(k))
            stable(k) = 0;
        end
    end
    if numel(points) > 1 && stable(1) ~= 0
        vaporFraction(1) = vaporFraction(2);
    end
    for k = 1:numel(points)
        points(k).vaporFraction = vaporFraction(k);
        points(k).stable = stable(k);
    end
    stable(1:min(end, ~isempty(pieces))) = 1; % at an edge the flash may find either
    unstable = find(stable == 0, 1);
    if isempty(unstable)
        pieces{end + 1} = points; %#ok<AGROW>
        critical(end + 1, :) = summit; %#ok<AGROW>
        return
    elseif unstable == 1
        ended = -2;
        return
    end
    [edge, start] = nextBranch(system, model, Z, points(unstable - 1), points(unstable));
    points = points(1:unstable - 1);
    while numel(points) > 1 && max(abs(points(end).v - edge.v)) < 0.15 ...
            && (points(end).v - edge.v) * edge.tangent.' > 0
        points(end) = []; % the flash has not seen so little of the other phase
    end
    if ~isempty(before) && (before >= unstable || before == unstable - 1 && ~passes(points(end), edge, numel(Z)))
        summit(:) = NaN; % not on the stable part
    end
    points(arrayfun(@(point) isequal(point.v, edge.v), points)) = []; % where nothing nearer was found
    pieces{end + 1} = [points, edge]; %#ok<AGROW>
    critical(end + 1, :) = summit; %#ok<AGROW>
    if isempty(start)
        ended = -3;
        return
    end
    edges(end + 1, :) = {edge, start}; %#ok<AGROW>
end
end

% Whether the flash of the mixture itself finds more than traces of several phases at a point; at a boundary it finds
% one.
function several = isSeveral(model, Z, point)
X = ofAllCompounds(model, Z);
try
    [~, fractions] = capeOpenFlash(model.handle, X, 'Temperature', exp(point.v(end - 1)), 'Pressure', ...
                                   exp(point.v(end)), 'Unspecified');
    several = sum(fractions > 1e-3) > 1;
catch failure
    rethrowOthers(failure);
    several = false;
end
end

% Whether the ratios go through 1 between two points.
function yes = passes(from, to, n)
[~, widest] = max(abs(from.v(1:n)));
yes = from.v(widest) * to.v(widest) < 0;
end

function W = newFractions(points, Z)
V = vertcat(points.v);
K = exp(V(:, 1:numel(Z)));
W = Z .* K ./ (K * Z.');
end

% The point where a second new phase comes between a stable point and an unstable one, and the branch on which that one
% is the first.
function [edge, start] = nextBranch(system, model, Z, good, bad)
n = numel(Z);
start = [];
edge = [];
beyond = bad;
for k = 1:12
    middle = solvedBetween(system, n, good, bad);
    if isempty(middle)
        break
    end
    stable = splitsIntoBoth(model, Z, newFractions(middle, Z), middle);
    middle.vaporFraction = good.vaporFraction;
    middle.stable = stable;
    if stable == 1
        good = middle;
    else
        bad = middle;
    end
end
edge = good;
others = [othersThan(model, Z, good, bad), othersThan(model, Z, good, beyond)];
for k = 1:numel(others)
    if max(abs(others(k).v(1:n) - good.v(1:n))) < 0.01
        continue
    end
    [first, second] = bothAtOnce(system, n, good, others(k));
    if ~isempty(first) && max(abs(first.v(n + 1:n + 2) - good.v(n + 1:n + 2))) < 0.15
        first.vaporFraction = good.vaporFraction;
        first.stable = 1;
        first.tangent = first.tangent * sign(first.tangent * good.tangent.');
        % Onwards is where the first one's tangent plane lies above.
        W = Z .* exp(first.v(1:n));
        above = W * first.jacobian(1:n, n + 1:n + 2) * second.tangent(n + 1:n + 2).';
        second.tangent = second.tangent * sign(above);
        edge = first;
        start = second;
        return
    end
end
end

% In the middle or, with the critical point between, nearer to it on one side.
function middle = solvedBetween(system, n, good, bad)
[~, fixed] = max(abs(bad.v - good.v));
goal = (good.v(fixed) + bad.v(fixed)) / 2;
phases = good.phases;
[~, widest] = max(abs(good.v(1:n)));
if good.v(widest) * bad.v(widest) < 0 && abs(diff(log(good.densities))) < 1
    fixed = widest;
    goal = 0.25 * good.v(fixed);
    if abs(bad.v(fixed)) > abs(good.v(fixed))
        goal = 0.25 * bad.v(fixed);
        phases = bad.phases;
    end
end
width = bad.v(fixed) - good.v(fixed);
next = pointBetween(good, bad, fixed, goal);
if ~all(isfinite(next)) || max(abs(next - good.v)) > 2 * max(abs(bad.v - good.v))
    next = good.v + (bad.v - good.v) * (goal - good.v(fixed)) / width;
end
others = bad.phases;
if isequal(phases, bad.phases)
    others = good.phases;
end
for labels = {phases, others}
    middle = solvePoint(system, next, fixed, labels{1}, 20);
    if ~isempty(middle) && max(abs(middle.v - next)) < 0.02 + max(abs(bad.v - good.v))
        middle.tangent = middle.tangent * sign(middle.tangent(fixed) * width);
        return
    end
end
middle = [];
end

% What the flash finds next to the mixture, other than the new phase of the point.
function others = othersThan(model, Z, good, bad)
n = numel(Z);
X = ofAllCompounds(model, Z);
others = struct('v', {}, 'phases', {});
try
    [labels, fractions, compositions] = capeOpenFlash(model.handle, X, 'Temperature', exp(bad.v(n + 1)), 'Pressure', ...
                                                      exp(bad.v(n + 2)), 'Unspecified');
catch failure
    rethrowOthers(failure);
    return
end
lnT = good.v(n + 1);
lnP = good.v(n + 2);
for side = [-1, 1] % where there is just one phase again, two of them are close by
    for row = flashedBoundary(model, Z, exp(lnP), side).'
        if abs(row(n + 1) - lnT) < 0.05
            others(end + 1) = struct('v', row.', 'phases', [1.5 + side / 2, 1.5 - side / 2]); %#ok<AGROW>
        end
    end
end
[~, order] = sort(fractions);
for k = order(1:end - 1).'
    lnK = log(max(compositions(k, model.compounds), 1e-300) ./ Z);
    others(end + 1) = struct('v', [lnK, lnT, lnP], ...
                             'phases', [good.phases(1), 2 - strcmpi(labels{k}, model.labels{1})]); %#ok<AGROW>
end
end

% Newton's method for two new phases at one temperature and pressure.
function [first, second] = bothAtOnce(system, n, good, other)
first = [];
second = [];
u = [good.v(1:n), other.v];
here = [1:n, 2 * n + 1, 2 * n + 2];
there = n + 1:2 * n + 2;
for effort = 1:20
    [F1, J1] = system.linearize(u(here), good.phases);
    [F2, J2] = system.linearize(u(there), other.phases);
    if isempty(F1) || isempty(F2)
        return
    end
    J = zeros(2 * n + 2);
    J(1:n + 1, here) = J1;
    J(n + 2:end, there) = J2;
    change = -(J \ [F1; F2]).';
    largest = max(abs(change));
    if ~isfinite(largest)
        return
    end
    u = u + change / max(1, 2 * largest);
    if largest < 1e-8
        break
    end
end
if largest < 1e-8 && max(abs(u(1:n) - u(n + 1:2 * n))) > 1e-3
    first = solvePoint(system, u(here), n + 2, good.phases, 5);
    second = solvePoint(system, u(there), n + 2, other.phases, 5);
    if isempty(second)
        first = [];
    end
end
end
