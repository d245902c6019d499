function tally = checkUnlisted(s, tally)
%checkUnlisted  What can be calculated of a phase is listed, once, and in any letters.
at = s.states(1);
for k = 2:numel(s.states)
    if isempty(at.T)
        at = s.states(k);
    end
end
lists = {'SinglePhase', s.single; 'TwoPhase', s.two; 'TDependent', s.T; 'PDependent', s.P; 'Constant', s.constants};
for k = 1:size(lists, 1)
    tally.asked = tally.asked + 1;
    names = lower(lists{k, 2});
    if numel(unique(names)) < numel(names)
        tally = checkFound(tally, 'note', sprintf('A name comes twice in the %s list', lists{k, 1}), '', ...
            {s.opening; sprintf('sort(lower(capeOpen%sPropList(handle)))', lists{k, 1})});
    end
end
if isempty(at.T)
    return
end
known = {'activity', 'activityCoefficient', 'compressibility', 'compressibilityFactor', 'density', 'enthalpy', ...
    'enthalpyF', 'enthalpyNF', 'entropy', 'entropyF', 'entropyNF', 'excessEnthalpy', 'excessEntropy', ...
        'excessGibbsEnergy', 'excessHelmholtzEnergy', 'excessInternalEnergy', 'excessVolume', 'fugacity', ...
            'fugacityCoefficient', 'gibbsEnergy', 'heatCapacityCp', 'heatCapacityCv', 'helmholtzEnergy', ...
                'internalEnergy', 'jouleThomsonCoefficient', 'logFugacity', 'logFugacityCoefficient', ...
                    'molecularWeight', 'speedOfSound', 'thermalConductivity', 'viscosity', 'volume', ...
                        'diffusionCoefficient'};
some = {};
for name = [known, strcat(known, '.Dtemperature'), strcat(known, '.Dpressure'), strcat(known, '.Dmoles')]
    if any(strcmpi(s.single, name{1}))
        continue
    end
    tally.asked = tally.asked + 1;
    try
        capeOpenSinglePhaseProp(s.handle, name{1}, at.T(1), at.P(1), at.X(1, :), at.phase);
        some{end + 1} = name{1}; %#ok<AGROW>
    catch
        % it is refused, as it should be
    end
end
if ~isempty(some)
    tally = checkFound(tally, 'note', ['Calculated, but not listed: ', strjoin(some, ', ')], stateText(at, 1), ...
        [stateLines(s, at.T(1), at.P(1), at.X(1, :))
                        {sprintf('capeOpenSinglePhaseProp(handle, ''%s'', T, P, X, ''%s'')', some{1}, at.phase)}]);
end
if any(strcmpi(s.single, 'density'))
    a = phaseValues(s, 'density', at.T(1), at.P(1), at.X(1, :), at.phase);
    b = phaseValues(s, 'DENSITY', at.T(1), at.P(1), at.X(1, :), upper(at.phase));
    tally.asked = tally.asked + 1;
    if ~isequal(a, b)
        tally = checkFound(tally, 'failure', 'Names in capital letters give another value', stateText(at, 1), ...
            [stateLines(s, at.T(1), at.P(1), at.X(1, :))
                            {sprintf('a = capeOpenSinglePhaseProp(handle, ''density'', T, P, X, ''%s'');', at.phase)
                             sprintf('b = capeOpenSinglePhaseProp(handle, ''DENSITY'', T, P, X, ''%s'');', ...
                                 upper(at.phase))
                             'deviation = abs(a - b)'; 'limit = 0'}]);
    end
end
end
