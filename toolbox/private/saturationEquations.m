function [F, J, densities] = saturationEquations(model, phases, Z, lnK, T, P, direction)
%saturationEquations  What is missing to equilibrium between a mixture and the first trace of another phase.
%
%   [F, J, densities] = saturationEquations(model, phases, Z, lnK, T, P, direction)
%
%   Z are the mole fractions of the mixture, LNK the logarithms of the ratios of mole fractions in the new phase to
%   those in the mixture, PHASES the numbers of the labels of both. F holds for each compound the difference in the
%   logarithm of fugacity, then that of the new fractions' sum to 1. The columns of J are the derivatives by lnK, the
%   logarithms of temperature and pressure and, if DIRECTION is given, by a shift of Z along it. All are empty where the
%   package does not calculate them.
F = [];
J = [];
densities = [];
K = exp(lnK);
Y = Z .* K;
total = sum(Y);
if ~(total > 0 && total < 1e6)
    return
end
try
    [mixture, d1, dT1, dP1, dn1] = fugacities(model, phases(1), T, P, Z);
    [other, d2, dT2, dP2, dn2] = fugacities(model, phases(2), T, P, Y / total);
catch failure
    rethrowOthers(failure);
    return
end
n = numel(Z);
F = [lnK(:) + other - mixture; total - 1];
J = [eye(n) + dn2 .* (Y / total), T * (dT2 - dT1), P * (dP2 - dP1); Y, 0, 0];
if nargin > 6
    shift = (direction .* K).';
    J = [J, [dn2 * shift / total - dn1 * direction(:); sum(shift)]];
end
densities = [d1, d2];
if ~all(isfinite(F)) || ~all(isfinite(J(:)))
    F = [];
end
end
