function curve = curveOf(points, vaporFraction)
%curveOf  Temperatures and pressures of points of a curve whose last two variables are their logarithms.
%
%   CURVE has the fields T, P, vaporFraction, points with all variables, slopes with their derivatives along the curve,
%   and critical, which is NaN. It is a 1-by-0 struct if there are no points.
if isempty(points)
    curve = struct('T', {}, 'P', {}, 'vaporFraction', {}, 'points', {}, 'slopes', {}, 'critical', {});
    return
end
V = vertcat(points.v);
curve = struct('T', exp(V(:, end - 1)), 'P', exp(V(:, end)), 'vaporFraction', vaporFraction, 'points', V, ...
               'slopes', vertcat(points.tangent), 'critical', [NaN, NaN]);
end
