function [points, ended] = traceCurve(system, points, most)
%traceCurve  Points along a curve on which the equations of two phases in equilibrium hold.
%
%   [points, ended] = traceCurve(system, points, most)
%
%   POINTS begins as one point of solvePoint, whose tangent leads away; what is found is added, up to MOST. Each step is
%   taken in the variable that changes most there and estimated by the cubic through the last two points (Michelsen,
%   Fluid Phase Equilibria 4 (1980) 1), so that the curve may turn back in any of them. SYSTEM has
%     linearize  see solvePoint
%     ratios     which variables are the logarithms of ratios of fractions
%     limits     limits(v): how far each variable may go in one step
%     bounds     2-by-m: the curve ends where a variable comes to one of these values, and on it
%     mirrored   whether the same points come again beyond a critical point; then it ends with the first of them
%     relabel    relabel(v, densities, phases): which labels give the phases these densities
%   Where the two phases become the same all ratios go through 1; that is stepped across in the widest of them.
%   ENDED is the number of the variable that came to its bound, 0 where steps became too short, -1 after MOST points.
part = 0.2; % of the largest step
crossable = 0.3;
ended = -1;
while numel(points) < most
    here = points(end);
    limits = system.limits(here.v);
    [goal, fixed, crossing] = aim(system, here, part * limits, crossable);
    next = estimate(points, fixed, goal);
    [next, fixed, last] = keepWithin(system.bounds, points, next, fixed);
    expected = here.densities;
    phases = here.phases;
    if crossing
        expected(1:2) = expected([2, 1]);
        phases(1:2) = phases([2, 1]);
    end
    found = attempt(system, next, fixed, phases, here.v, limits, expected);
    if isempty(found)
        other = system.relabel(next, expected, phases);
        if ~isempty(other) && ~isequal(other, phases)
            found = attempt(system, next, fixed, other, here.v, limits, expected);
        end
    end
    if isempty(found)
        part = part / 2;
        if crossing
            crossable = 0.7 * max(abs(here.v(system.ratios)));
        end
        if part < 1e-3
            ended = 0;
            return
        end
        continue
    end
    found.tangent = found.tangent * sign(sum(found.tangent .* (found.v - here.v) ./ limits .^ 2));
    points(end + 1) = found; %#ok<AGROW>
    if last
        ended = fixed;
        return
    elseif system.mirrored && passed(system, here, found)
        return
    end
    if found.effort <= 3
        part = min(1, 1.6 * part);
    elseif found.effort > 4
        part = 0.7 * part;
    end
end
end

% Whether the phases were the same on the way.
function yes = passed(system, here, found)
[~, k] = max(abs(here.v(system.ratios)));
widest = system.ratios(k);
yes = here.v(widest) * found.v(widest) < 0 && abs(log(found.densities(2) / found.densities(1))) < 0.7;
end

% The variable to go in, and how far. Near the critical point that is the widest ratio.
function [goal, fixed, crossing] = aim(system, here, limits, crossable)
crossing = false;
step = here.tangent / max(abs(here.tangent) ./ limits);
[~, fixed] = max(abs(step));
if abs(log(here.densities(2) / here.densities(1))) < 1.5
    [~, k] = max(abs(here.v(system.ratios)));
    widest = system.ratios(k);
    goal = here.v(widest) + step(widest);
    if goal / here.v(widest) < 0.7
        fixed = widest;
        if goal / here.v(fixed) < 0.5
            crossing = abs(here.v(fixed)) < crossable;
            goal = here.v(fixed) * (0.5 - 1.5 * crossing);
        end
        return
    end
end
goal = here.v(fixed) + step(fixed);
end

% By the cubic through the last two points and their tangents, with one point by its tangent.
function next = estimate(points, fixed, goal)
here = points(end);
slope = here.tangent / here.tangent(fixed);
next = here.v + slope * (goal - here.v(fixed));
if numel(points) > 1
    before = points(end - 1);
    width = here.v(fixed) - before.v(fixed);
    u = (goal - here.v(fixed)) / width;
    if before.tangent(fixed) * here.tangent(fixed) > 0 && u > 0 && u < 3
        cubic = hermite(here.v, before.v, -width * slope, -width * before.tangent / before.tangent(fixed), -u);
        if all(abs(cubic - next) < 0.5 * abs(next - here.v) + 0.05)
            next = cubic;
        end
    end
end
end

function [next, fixed, last] = keepWithin(bounds, points, next, fixed)
beyond = find(next < bounds(1, :) | next > bounds(2, :));
last = ~isempty(beyond);
here = points(end).v;
nearest = Inf;
for k = beyond
    bound = bounds(1 + (next(k) > bounds(2, k)), k);
    share = (bound - here(k)) / (next(k) - here(k));
    if share < nearest
        nearest = share;
        fixed = k;
        goal = bound;
    end
end
if last
    next = here + nearest * (next - here);
    next(fixed) = goal;
end
end

% A point near the estimate, with phases that are like those before; empty if there is none.
function found = attempt(system, next, fixed, phases, here, limits, expected)
found = solvePoint(system, next, fixed, phases, 9);
if ~isempty(found) && (any(abs(found.v - next) > limits) || any(abs(found.v - here) > 2 * limits) ...
                       || any(abs(log(found.densities ./ expected)) > 0.7) ...
                       || all(abs(found.v(system.ratios)) < 1e-5) ...
                       && abs(log(found.densities(2) / found.densities(1))) < 1e-4)
    found = [];
end
end
