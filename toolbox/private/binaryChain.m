function [vapors, liquids, place, why] = binaryChain(model, system, isotherm, start)
%binaryChain  Branches of boiling liquid and vapor from one point on, across three phases to the next of them.
%
%   [vapors, liquids, place, why] = binaryChain(model, system, isotherm, start)
%
%   START is a point of solvePoint with a tangent that leads away. VAPORS and LIQUIDS are structs with points and
%   slopes, the latter of two liquids that are in equilibrium next to the three phases. PLACE is the fraction of
%   compound 1 where it ends at a pure compound, NaN otherwise, and WHY a sentence if that is open.
vapors = struct('points', {}, 'slopes', {});
liquids = vapors;
place = NaN;
why = '';
while numel(vapors) < 4
    [points, ended] = traceCurve(system, start, 400);
    [critical, before, jump, beside] = criticalPoint(system, points);
    if ~isempty(before)
        points = points(1:before);
    elseif ~isempty(jump)
        points = points(1:jump);
        ended = 0;
    end
    stable = stableTies(model, system, points);
    stable(1:min(end, ~isempty(vapors))) = 1; % at three phases the flash may find any two
    bad = find(stable == 0, 1);
    if isequal(bad, 1)
        why = endingAt(points(1), isotherm, 'the package''s flash finds other phases there');
        return
    elseif ~isempty(bad)
        points = points(1:bad - 1);
        [edge, second] = thirdPhase(model, system, points(end));
        vapors(end + 1) = branchOf([points, edge]); %#ok<AGROW>
        if isempty(edge)
            why = endingAt(points(end), isotherm, 'a third phase appears there, and its line was not found');
            return
        end
        liquids = [liquids, liquidsAt(model, system, isotherm, edge, second)]; %#ok<AGROW>
        start = second;
        continue
    end
    branch = branchOf(points);
    if ~isempty(before)
        branch = closed(branch, beside, critical);
    elseif ended == 4
        place = points(end).v(4);
    else
        last = points(end).v;
        last(3) = last(3) + 0.05 * sign(points(end).tangent(3));
        [T, P] = system.conditions(last);
        why = endingAt(points(end), isotherm, whyNoFurther(model, T, P, system.fractions(last)));
    end
    vapors(end + 1) = branch; %#ok<AGROW>
    return
end
why = endingAt(start, isotherm, 'they are followed no further');
end

function branch = branchOf(points)
branch = struct('points', vertcat(points.v), 'slopes', vertcat(points.tangent));
end

function branch = closed(branch, beside, critical)
branch.points = [branch.points; beside.v; critical];
branch.slopes = [branch.slopes; beside.tangent; NaN(size(critical))];
end

function text = endingAt(point, isotherm, why)
unit = 'K';
level = exp(point.v(3));
if isotherm
    unit = 'bar';
    level = level / 1e5;
end
text = sprintf('the lines end at %.5g %s and a fraction of COMPOUND1 of %.4g: %s', level, unit, point.v(4), why);
end

function stable = stableTies(model, system, points)
V = vertcat(points.v);
[T, P] = system.conditions(V);
[X, Y] = system.fractions(V);
stable = splitsIntoBoth(model, X, Y, points, T, P);
stable(any(X == 0 & Y == 0, 2)) = 1; % one compound alone
end

% The liquid that is in equilibrium with both phases, a bit beyond the last point at which they are stable.
function [edge, second] = thirdPhase(model, system, good)
edge = [];
second = [];
V = good.v;
for step = [0.02, 0.05, 0.1, 0.2]
    V = good.v + step * good.tangent / max(abs(good.tangent ./ system.limits(good.v))) * 5;
    V(4) = between0And1(good.v(4), V(4));
    [T, P] = system.conditions(V);
    [X, Y] = system.fractions(V);
    for share = [0.3, 0.7, 0.02, 0.98]
        Z = ofAllCompounds(model, (1 - share) * X + share * Y);
        try
            [labels, ~, phases] = capeOpenFlash(model.handle, Z, 'Temperature', T, 'Pressure', P, 'Unspecified');
        catch failure
            rethrowOthers(failure);
            continue
        end
        for k = find(~strcmpi(labels(:).', model.labels{1}))
            x = phases(k, model.compounds);
            if abs(x(1) - X(1)) > 0.02 && x(1) > 0 && x(1) < 1
                [edge, second] = threePhasesAt(system, good, [log(Y ./ x), V(3), x(1)]);
                if ~isempty(edge)
                    return
                end
            end
        end
    end
end
end

% A fraction that is to be another one goes half the way to 0 or 1 at most.
function x = between0And1(x, wanted)
x = min(max(wanted, x / 2), (1 + x) / 2);
end

% Newton's method for two liquids with the same vapor.
function [edge, second] = threePhasesAt(system, good, other)
edge = [];
second = [];
u = [good.v, other([1, 2, 4])];
there = [5, 6, 3, 7];
for effort = 1:30
    [F1, J1] = system.linearize(u(1:4), [2, 1]);
    [F2, J2] = system.linearize(u(there), [2, 1]);
    if isempty(F1) || isempty(F2)
        return
    end
    J = zeros(7);
    J(1:3, 1:4) = J1;
    J(4:6, there) = J2;
    J(7, [1, 4, 5, 7]) = [1, 1 / u(4), -1, -1 / u(7)];
    change = -(J \ [F1; F2; u(1) + log(u(4)) - u(5) - log(u(7))]).';
    largest = max(abs(change));
    if ~isfinite(largest)
        return
    end
    change = change / max(1, largest);
    for k = [4, 7]
        u(k) = between0And1(u(k), u(k) + change(k));
    end
    u([1:3, 5, 6]) = u([1:3, 5, 6]) + change([1:3, 5, 6]);
    if largest < 1e-9
        break
    end
end
if largest < 1e-9 && abs(u(4) - u(7)) > 1e-3 && abs(u(3) - good.v(3)) < 0.3 && abs(u(4) - good.v(4)) < 0.2
    edge = solvePoint(system, u(1:4), 3, [2, 1], 5);
    second = solvePoint(system, u(there), 3, [2, 1], 5);
    if isempty(edge) || isempty(second)
        edge = [];
        return
    end
    edge.tangent = edge.tangent * sign(edge.tangent * good.tangent.');
    second.tangent = second.tangent * sign(second.tangent(4)) * sign(second.v(4) - edge.v(4));
end
end

% Two liquids at higher pressures than those of three phases, or lower temperatures.
function liquids = liquidsAt(model, system, isotherm, edge, second)
liquids = struct('points', {}, 'slopes', {});
X = system.fractions(edge.v);
W = system.fractions(second.v);
level = exp(edge.v(3));
system.bounds(:, 3) = log([0.8 * level; level]);
if isotherm
    system.bounds(:, 3) = log([level; 3 * level]);
end
start = solvePoint(system, [log(W ./ X), edge.v(3:4)], 3, [2, 2], 20);
if isempty(start) || max(abs(start.v(1:2))) < 1e-3
    return
end
start.tangent = start.tangent * sign(start.tangent(3)) * (2 * isotherm - 1);
points = traceCurve(system, start, 200);
[critical, before, ~, beside] = criticalPoint(system, points);
if ~isempty(before)
    points = points(1:before);
end
bad = find(stableTies(model, system, points(2:end)) == 0, 1);
if ~isempty(bad)
    points = points(1:bad);
end
liquids = branchOf(points);
if ~isempty(before) && isempty(bad)
    liquids = closed(liquids, beside, critical);
end
end
