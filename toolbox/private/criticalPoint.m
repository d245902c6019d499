function [critical, before, jump, beside] = criticalPoint(system, points)
%criticalPoint  The variables where a curve of traceCurve passes a critical point; NaN where it does not.
%
%   [critical, before, jump, beside] = criticalPoint(system, points)
%
%   There all ratios go through 1 and the densities become the same; two points next to it, one on each side, enclose
%   it. BEFORE is the number of the last point before it, BESIDE a point of the curve still nearer to it, JUMP the
%   number of the last one before ratios go through 1 without that; they are empty if there is none.
critical = NaN(1, numel(points(1).v));
before = [];
jump = [];
beside = [];
for k = 1:numel(points) - 1
    here = points(k).v(system.ratios);
    next = points(k + 1).v(system.ratios);
    [~, widest] = max(abs(here));
    if here(widest) * next(widest) >= 0 || max(abs([here, next])) > 2
        continue
    end
    [critical, beside] = enclosed(system, points(k), points(k + 1), system.ratios(widest));
    if ~isnan(critical(1))
        before = k;
        return
    elseif ~isequal(points(k).phases, points(k + 1).phases) && isempty(jump)
        jump = k;
    end
end
end

function [critical, beside] = enclosed(system, before, after, widest)
critical = NaN(size(before.v));
beside = [];
% Ratios and differences of density go to zero together; too near, the equations become singular.
most = min(abs([before.v(widest), after.v(widest)]));
nearest = min(0.02, abs(before.v(widest)) * min(1, 0.1 / apart(before)));
for near = sign(before.v(widest)) * min(most, nearest * [1, 3, 10])
    sides = bothSides(system, before, after, widest, near);
    if ~isempty(sides)
        break
    end
end
if isempty(sides)
    return
end
% The curve is smooth there: each point leads to the other.
way = sides{2}.v - sides{1}.v;
if way(widest) == 0
    return
end
for s = 1:2
    ahead = way(widest) * sides{s}.tangent / sides{s}.tangent(widest);
    if max(abs(ahead - way)) > 0.02 + 0.3 * max(abs(way))
        return
    end
end
critical = pointBetween(sides{1}, sides{2}, widest, 0);
critical(system.ratios) = 0;
beside = sides{1};
beside.tangent = beside.tangent * sign(beside.tangent(widest) * way(widest));
end

function sides = bothSides(system, before, after, widest, near)
sides = {before, after};
goals = [near, -near];
for s = 1:2
    next = pointBetween(before, after, widest, goals(s));
    found = solvePoint(system, next, widest, sides{s}.phases, 15);
    if isempty(found) || max(abs(found.v(system.ratios))) > 1.5 * abs(near) || apart(found) > 0.2
        sides = {};
        return
    end
    sides{s} = found;
end
end

function difference = apart(point)
difference = abs(log(point.densities(2) / point.densities(1)));
end
