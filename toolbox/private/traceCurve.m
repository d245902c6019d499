function V = traceCurve(equations, start, fixed, direction, limits, review)
%traceCurve  Points along the curve on which m equations in m + 1 variables hold.
%
%   V = traceCurve(equations, start, fixed, direction, limits, review)
%
%   EQUATIONS gives the m residuals of each row of variables. The first point is solved from START (1-by-(m+1)) at the
%   given value of variable number FIXED, from where the curve is followed upwards in this variable (DIRECTION 1) or
%   downwards (-1). A step changes no variable by more than its entry in LIMITS, and is taken in the variable that
%   changes most, so that the curve may turn back in any of them. Before each step REVIEW is asked,
%   [next, fixed, last] = review(next, fixed, V): it sees the next point as it is estimated, may move it, and tells
%   whether it is the last. Rows of V are the points.
%
%   Keeps to what solves: where a step does not, shorter ones are tried. The first point is demanded, of the others
%   there are as many as are found.
most_points = 300;
V = correct(equations, start, fixed);
if isempty(V)
    return
end
tangent = zeros(size(start));
tangent(fixed) = direction;
part = 0.3; % of the largest step
last = false;
while ~last && size(V, 1) < most_points && part > 1e-4
    here = V(end, :);
    ahead = tangentAt(equations, here, fixed);
    if isempty(ahead)
        return
    end
    ahead = ahead / max(abs(ahead) ./ limits);
    if ahead * (tangent ./ limits .^ 2).' < 0
        ahead = -ahead;
    end
    [~, fixed] = max(abs(ahead) ./ limits);
    [next, moved, last] = review(here + part * ahead, fixed, V);
    [found, effort] = correct(equations, next, moved);
    if isempty(found) || any(abs(found - here) > 2 * limits)
        part = part / 2;
        last = false;
        continue
    end
    V(end + 1, :) = found; %#ok<AGROW>
    fixed = moved;
    tangent = ahead;
    if effort <= 4
        part = min(1, 1.5 * part);
    end
end
end

% Newton's method with one variable held; empty if it does not come to an end.
function [v, effort] = correct(equations, v, fixed)
free = [1:fixed - 1, fixed + 1:numel(v)];
for effort = 1:25
    [F, J] = linearized(equations, v);
    if isempty(F)
        break
    end
    if max(abs(F)) < 1e-9
        return
    end
    change = -(J(:, free) \ F(:)).';
    if ~all(isfinite(change))
        break
    end
    v(free) = v(free) + change / max(1, max(abs(change)) / 0.5);
    if max(abs(change)) < 1e-7 % the next one would be smaller by orders of magnitude
        return
    end
end
v = [];
end

function t = tangentAt(equations, v, fixed)
[~, J] = linearized(equations, v);
t = [];
if ~isempty(J)
    row = zeros(1, numel(v));
    row(fixed) = 1;
    t = ([J; row] \ [zeros(numel(v) - 1, 1); 1]).';
end
if ~all(isfinite(t))
    t = [];
end
end

% Residuals and their derivatives by differences, all in one call; empty where they can not be calculated.
function [F, J] = linearized(equations, v)
shift = 1e-6 * (1 - 2 * (v > 0.5 & v <= 1)); % a fraction stays one
try
    rows = equations([v; repmat(v, numel(v), 1) + diag(shift)]);
    F = rows(1, :);
    J = ((rows(2:end, :) - repmat(F, numel(v), 1)) ./ repmat(shift(:), 1, numel(F))).';
catch failure
    if ~strcmp(failure.identifier, 'Verdanth:error')
        rethrow(failure);
    end
    F = [];
    J = [];
end
if ~all(isfinite(F)) || ~all(isfinite(J(:)))
    F = [];
    J = [];
end
end
