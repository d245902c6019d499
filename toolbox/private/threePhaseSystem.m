function system = threePhaseSystem(model, z, bounds)
%threePhaseSystem  The equations of a mixture of two phases from which a third one appears, for traceCurve.
%
%   Variables are the logarithms of the ratios of fractions in the second phase and in the new one to those in the
%   first, each for all compounds, the second phase's part of the whole, and the logarithms of temperature and pressure.
%   Phases and densities are in the order first, new, second; it is first and new one that may become the same. BOUNDS
%   are 2-by-2, lowest and highest temperature and pressure.
n = numel(z);
system = struct();
system.ratios = n + 1:2 * n;
system.mirrored = n == 2;
system.bounds = [[-Inf; Inf] * ones(1, 2 * n), [0; 1], log(bounds)];
system.linearize = @(v, phases) linearize(model, z, v, phases);
system.limits = @(v) [0.8 + 0.2 * abs(v(1:2 * n)), 0.15, 0.05, 0.5];
system.relabel = @(v, densities, phases) relabel(model, z, v, densities, phases);
end

function [a, b, c] = amounts(z, v)
n = numel(z);
a = z ./ (1 + v(2 * n + 1) * (exp(v(1:n)) - 1));
b = a .* exp(v(1:n));
c = a .* exp(v(n + 1:2 * n));
end

function phases = relabel(model, z, v, densities, phases)
[a, ~, c] = amounts(z, v);
found = labelsOfDensities(model, {a / sum(a), c / sum(c)}, exp(v(end - 1)), exp(v(end)), densities(1:2));
if isempty(found)
    phases = [];
else
    phases(1:2) = found;
end
end

function [F, J, densities] = linearize(model, z, v, phases)
F = [];
J = [];
densities = [];
n = numel(z);
part = v(2 * n + 1);
T = exp(v(end - 1));
P = exp(v(end));
[a, b, c] = amounts(z, v);
if ~all(a > 0) || ~all(isfinite([a, b, c])) || max(abs(v(1:n) - v(n + 1:2 * n))) < 0.02
    return % or the new phase is the second one, which solves the equations anywhere
end
try
    [fa, da, dTa, dPa, na] = fugacities(model, phases(1), T, P, a / sum(a));
    [fc, dc, dTc, dPc, nc] = fugacities(model, phases(2), T, P, c / sum(c));
    [fb, db, dTb, dPb, nb] = fugacities(model, phases(3), T, P, b / sum(b));
catch failure
    rethrowOthers(failure);
    return
end
% Derivatives by the logarithms of amounts, and of those of the first phase by ratio and part.
na = na .* (a / sum(a));
nb = nb .* (b / sum(b));
nc = nc .* (c / sum(c));
K = exp(v(1:n));
byRatio = -part * K ./ (1 + part * (K - 1));
byPart = -(K - 1) ./ (1 + part * (K - 1));
F = [v(1:n).' + fb - fa; v(n + 1:2 * n).' + fc - fa; sum(b - a); sum(c - a)];
J = [eye(n) + nb .* (1 + byRatio) - na .* byRatio, zeros(n), (nb - na) * byPart.', T * (dTb - dTa), P * (dPb - dPa)
     (nc - na) .* byRatio, eye(n) + nc, (nc - na) * byPart.', T * (dTc - dTa), P * (dPc - dPa)
     b .* (1 + byRatio) - a .* byRatio, zeros(1, n), (b - a) * byPart.', 0, 0
     (c - a) .* byRatio, c, (c - a) * byPart.', 0, 0];
densities = [da, dc, db];
if ~all(isfinite(F)) || ~all(isfinite(J(:)))
    F = [];
end
end
