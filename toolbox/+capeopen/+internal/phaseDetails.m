function result = phaseDetails(handle, result)
%capeopen.internal.phaseDetails  Adds to a flash what else one needs of each phase: NaN where the package has no value.
names = {'density', 'enthalpy', 'entropy', 'heatCapacityCp', 'heatCapacityCv'};
count = numel(result.phases);
offered = lower(capeOpenSinglePhasePropList(handle));
for k = 1:numel(names)
    values = NaN(1, count);
    for phase = 1:count * any(strcmp(offered, lower(names{k})))
        values(phase) = capeOpenSinglePhaseProp(handle, names{k}, result.T, result.P, ...
                                                result.compositions(phase, :), result.phases{phase}, 'NaN');
    end
    result.(names{k}) = values;
end
weights = capeOpenConstant(handle, 'molecularWeight').';
if capeopen.internal.isMassBasis()
    result.molarMass = (sum(result.compositions, 2) ./ (result.compositions * (1 ./ weights))).';
else
    result.molarMass = (result.compositions * weights ./ sum(result.compositions, 2)).';
end
end
