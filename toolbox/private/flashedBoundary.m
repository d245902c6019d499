function trials = flashedBoundary(model, Z, P, side)
%flashedBoundary  The dew point (SIDE -1) or bubble point (1) of a mixture as the package's flash has it.
%
%   Rows of TRIALS are estimates for the variables of envelopeSystem, one for each phase that is new; there are none
%   where the flash fails.
X = ofAllCompounds(model, Z);
trials = zeros(0, numel(Z) + 2);
try
    [~, fractions, compositions, T] = capeOpenFlash(model.handle, X, 'Pressure', P, ...
                                                    'vaporFraction', double(side < 0), 'Unspecified');
catch failure
    rethrowOthers(failure);
    return
end
for k = find(fractions(:).' < 0.5)
    trials(end + 1, :) = [log(max(compositions(k, model.compounds), 1e-300) ./ Z), log(T), log(P)]; %#ok<AGROW>
end
end
