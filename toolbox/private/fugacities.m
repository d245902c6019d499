function [lnPhi, density, dT, dP, dn] = fugacities(model, phase, T, P, x)
%fugacities  Logarithms of fugacity coefficients in a phase, its density and the derivatives of the former.
%
%   [lnPhi, density, dT, dP, dn] = fugacities(model, phase, T, P, x)
%
%   One condition; X are the mole fractions of the compounds of MODEL, PHASE is the number of a label in it. DT and DP
%   are columns, DN(i,j) is the derivative of number i by the moles of j in one mole of mixture. They come from the
%   package or, where it has none, from differences.
there = model.compounds;
label = model.labels{phase};
X = zeros(1, model.count);
X(there) = x;
if nargout < 3
    [lnPhi, density] = capeOpenSinglePhaseProp(model.handle, model.names(1:2), T, P, X, label);
    lnPhi = lnPhi(there).';
elseif model.analytic
    [lnPhi, density, dT, dP, dn] = capeOpenSinglePhaseProp(model.handle, model.names, T, P, X, label);
    lnPhi = lnPhi(there).';
    dT = dT(there).';
    dP = dP(there).';
    dn = dn(there, there);
else
    n = numel(there);
    shift = 1e-6;
    rows = repmat(X, n + 3, 1);
    for k = 1:n
        rows(k + 3, there(k)) = rows(k + 3, there(k)) + shift;
    end
    rows(4:end, :) = rows(4:end, :) / (1 + shift);
    temperatures = T * ones(n + 3, 1);
    temperatures(2) = T * (1 + shift);
    pressures = P * ones(n + 3, 1);
    pressures(3) = P * (1 + shift);
    [values, density] = capeOpenSinglePhaseProp(model.handle, model.names(1:2), temperatures, pressures, rows, label);
    values = values(:, there).';
    density = density(1);
    lnPhi = values(:, 1);
    dT = (values(:, 2) - lnPhi) / (shift * T);
    dP = (values(:, 3) - lnPhi) / (shift * P);
    dn = (values(:, 4:end) - repmat(lnPhi, 1, n)) / shift;
end
end
