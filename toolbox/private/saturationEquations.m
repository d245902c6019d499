function F = saturationEquations(handle, labels, Z, lnK, T, P)
%saturationEquations  What is missing to equilibrium between a mixture and the first trace of another phase.
%
%   F = saturationEquations(handle, labels, Z, lnK, T, P)
%
%   Rows are conditions: mole fractions Z of the mixture, N-by-n, logarithms of the ratios of mole fractions in the new
%   phase to those in the mixture, temperatures in K and pressures in Pa. LABELS are the phases of mixture and new
%   phase. F is N-by-(n+1): for each compound the difference in the logarithm of fugacity, then that of the new
%   fractions' sum to 1.
K = exp(lnK);
W = Z .* K;
total = sum(W, 2);
mixture = capeOpenSinglePhaseProp(handle, 'logFugacityCoefficient', T, P, Z, labels{1});
other = capeOpenSinglePhaseProp(handle, 'logFugacityCoefficient', T, P, W ./ repmat(total, 1, size(W, 2)), labels{2});
F = [lnK + other - mixture, total - sum(Z, 2)];
end
