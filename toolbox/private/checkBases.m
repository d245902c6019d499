function tally = checkBases(s, tally)
%checkBases  Values in mass basis are those in mole basis over the molar mass.
%
%   The same numbers go through molecular weights alone: they agree to 1e-9.
names = {'density', 1; 'volume', -1; 'enthalpy', -1; 'entropy', -1; 'gibbsEnergy', -1; 'heatCapacityCp', -1
         'compressibilityFactor', 0; 'viscosity', 0};
restore = onCleanup(@() capeOpenBasis('mole')); %#ok<NASGU>
for k = 1:size(names, 1)
    [name, power] = names{k, :};
    if ~any(strcmpi(s.single, name)) || any(isnan(s.molar))
        continue
    end
    for at = s.states
        if isempty(at.T)
            continue
        end
        M = at.X * s.molar.';
        W = bsxfun(@rdivide, bsxfun(@times, at.X, s.molar), M);
        moles = phaseValues(s, name, at.T, at.P, at.X, at.phase);
        capeOpenBasis('mass');
        mass = phaseValues(s, name, at.T, at.P, W, at.phase);
        capeOpenBasis('mole');
        if ~isequal(size(moles), size(mass), size(M))
            continue
        end
        expected = moles .* M .^ power;
        limit = 1e-9 * abs(expected);
        limit(~isfinite(expected)) = NaN;
        ask = @(X) sprintf('capeOpenSinglePhaseProp(handle, ''%s'', T, P, %s, ''%s'');', name, X, at.phase);
        lines = @(row) [stateLines(s, at.T(row), at.P(row), at.X(row, :))
                        {'m = capeOpenConstant(handle, ''molecularWeight'') / 1000; M = X * m.''; W = X .* m / M;'
                         ['a = ', ask('X')]; 'capeOpenBasis(''mass'')'; ['b = ', ask('W')]; 'capeOpenBasis(''mole'')'
                         sprintf('deviation = abs(b - a * M ^ %d)', power)
                         sprintf('limit = 1e-9 * abs(a * M ^ %d)', power)}];
        what = sprintf('%s: %s in mass basis is not that in mole basis', at.phase, name);
        tally = checkCompared(tally, 'failure', what, mass - expected, limit, at, lines);
    end
end
end
