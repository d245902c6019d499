function lnK = wilson(critical, T, P)
%wilson  First estimate of the logarithm of vapor to liquid mole fractions (Wilson 1968).
%
%   T and P are scalar, CRITICAL has the fields T, P and acentric with a value for each compound.
lnK = log(critical.P / P) + 5.373 * (1 + critical.acentric) .* (1 - critical.T / T);
end
