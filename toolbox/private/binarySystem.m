function system = binarySystem(model, isotherm, value, bounds)
%binarySystem  The equations of two phases of two compounds under one held condition, for traceCurve.
%
%   system = binarySystem(model, isotherm, value, bounds)
%
%   Variables are the logarithms of the ratios of fractions in the second phase to those in the first, that of the
%   level, the pressure of an isotherm or the temperature of an isobar, and the fraction of compound 1 in the first.
%   VALUE is the one that is held, BOUNDS are the lowest and the highest level. Further fields tell what a row of
%   variables means: conditions(V) gives T and P, fractions(V) those of both compounds in both phases.
system = struct();
system.ratios = [1, 2];
system.mirrored = true;
system.bounds = [-Inf, -Inf, log(bounds(1)), 0; Inf, Inf, log(bounds(2)), 1];
system.conditions = @(V) conditions(isotherm, value, V);
system.fractions = @fractions;
system.linearize = @(v, phases) linearize(model, isotherm, value, v, phases);
system.limits = @(v) [0.8 + 0.2 * abs(v(1:2)), 0.02 + 0.28 * isotherm, 0.04];
system.relabel = @(v, densities, ~) relabel(model, isotherm, value, v, densities);
end

function [T, P] = conditions(isotherm, value, V)
T = exp(V(:, 3));
P = value * ones(size(T));
if isotherm
    [T, P] = deal(P, T);
end
end

function [X, Y] = fractions(V)
X = [V(:, 4), 1 - V(:, 4)];
Y = X .* exp(V(:, 1:2));
for k = 1:2 % of so little in the first phase that it is rounded to 0, the second has what is missing there
    missing = 1 - Y(:, 3 - k);
    Y(X(:, k) == 0 & missing > 1e-6, k) = missing(X(:, k) == 0 & missing > 1e-6);
end
Y = Y ./ sum(Y, 2);
end

function [F, J, densities] = linearize(model, isotherm, value, v, phases)
[T, P] = conditions(isotherm, value, v);
if v(4) < 0 || v(4) > 1
    v(4) = min(max(v(4), 0), 1);
end
[F, J, densities] = saturationEquations(model, phases, [v(4), 1 - v(4)], v(1:2), T, P, [1, -1]);
if ~isempty(J)
    J = J(:, [1, 2, 3 + isotherm, 5]);
end
end

function phases = relabel(model, isotherm, value, v, densities)
[T, P] = conditions(isotherm, value, v);
[X, Y] = fractions(v);
phases = labelsOfDensities(model, {X, Y}, T, P, densities);
end
