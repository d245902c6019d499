function system = envelopeSystem(model, Z, bounds)
%envelopeSystem  The equations of a phase envelope for traceCurve.
%
%   Variables are for each compound the logarithm of its ratio in new phase and mixture, then the logarithms of
%   temperature and pressure. BOUNDS are 2-by-2, lowest and highest temperature and pressure.
n = numel(Z);
system = struct();
system.ratios = 1:n;
system.mirrored = false;
system.bounds = [[-Inf; Inf] * ones(1, n), log(bounds)];
system.linearize = @(v, phases) saturationEquations(model, phases, Z, v(1:n), exp(v(n + 1)), exp(v(n + 2)));
system.limits = @(v) [0.8 + 0.2 * abs(v(1:n)), 0.05, 0.5];
system.relabel = @(v, densities, ~) labelsOfDensities(model, {Z, newFractions(Z, v(1:n))}, exp(v(n + 1)), ...
                                                      exp(v(n + 2)), densities);
end

function W = newFractions(Z, lnK)
W = Z .* exp(lnK);
W = W / sum(W);
end
