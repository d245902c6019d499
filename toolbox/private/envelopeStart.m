function start = envelopeStart(system, model, Z, constants, P, side)
%envelopeStart  First dew point (SIDE -1) or bubble point (1) of a mixture at a low pressure; empty if none is found.
%
%   Tried are Wilson's ratios, drops of each of the compounds that condense first, which finds the water of
%   hydrocarbons, and the package's own flash. The first liquid appears at the highest of the temperatures found, the
%   first vapor at the lowest of them. The tangent leads to higher pressures.
n = numel(Z);
T = temperatureOfSum(constants, Z, P, side);
trials = [side * wilson(constants, T, P), log(T), log(P)];
if side < 0
    alone = constants.T ./ (1 - log(P * 1 ./ (Z .* constants.P)) ./ (5.373 * (1 + constants.acentric)));
    alone(alone < 0) = Inf;
    [~, order] = sort(-alone .* (alone < 1.5 * constants.T));
    for j = order(1:min(3, n))
        lnK = -wilson(constants, alone(j), P);
        lnK(j) = -log(Z(j));
        trials(end + 1, :) = [lnK, log(alone(j)), log(P)]; %#ok<AGROW>
    end
end
trials = [trials; flashedBoundary(model, Z, P, side)];
phases = [1, 2];
if side > 0
    phases = [2, 1];
end
start = [];
for k = 1:size(trials, 1)
    if ~all(isfinite(trials(k, :)))
        continue
    end
    point = solvePoint(system, trials(k, :), n + 2, phases, 30);
    if ~isempty(point) && diff(log(point.densities)) * side < -1e-3 ...
            && (isempty(start) || (point.v(n + 1) - start.v(n + 1)) * side < -1e-9)
        start = point;
    end
end
if ~isempty(start)
    start.tangent = start.tangent * sign(start.tangent(n + 2));
end
end

% Where the estimate of the new phase has fractions with the sum 1.
function T = temperatureOfSum(constants, Z, P, side)
below = 5;
above = 3000;
while above - below > 1e-3
    T = (below + above) / 2;
    if (sum(Z .* exp(side * wilson(constants, T, P))) - 1) * side < 0
        below = T;
    else
        above = T;
    end
end
end
