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
    % Central ones: next to a critical point the slopes of a curve lose six digits.
    n = numel(there);
    shift = 1e-5;
    back = [shift, shift, min(shift, x)]; % no fraction below 0
    steps = [shift * eye(n + 2); -diag(back)];
    rows = repmat(X, 2 * n + 5, 1);
    rows(2:end, there) = rows(2:end, there) + steps(:, 3:end);
    rows(2:end, :) = rows(2:end, :) ./ (1 + sum(steps(:, 3:end), 2));
    [values, density] = capeOpenSinglePhaseProp(model.handle, model.names(1:2), T * [1; 1 + steps(:, 1)], ...
                                                P * [1; 1 + steps(:, 2)], rows, label);
    values = values(:, there).';
    density = density(1);
    lnPhi = values(:, 1);
    slopes = (values(:, 2:n + 3) - values(:, n + 4:end)) ./ (shift + back);
    dT = slopes(:, 1) / T;
    dP = slopes(:, 2) / P;
    dn = slopes(:, 3:end);
end
end
