function tally = checkRelations(s, tally)
%checkRelations  What thermodynamics says of derivatives, taken from differences: it needs no listed derivative.
relations = {
    'enthalpy', 'T', {'heatCapacityCp'}, 'heatCapacityCp'
    'entropy', 'T', {'heatCapacityCp'}, 'heatCapacityCp ./ T'
    'gibbsEnergy', 'T', {'entropy'}, '-entropy'
    'gibbsEnergy', 'P', {'volume'}, 'volume'
    'enthalpy', 'P', {'volume', 'jouleThomsonCoefficient', 'heatCapacityCp'}, ...
        '-jouleThomsonCoefficient .* heatCapacityCp'
    'volume', 'P', {'volume', 'compressibility'}, '-compressibility .* volume'
    'volume', 'T', {'volume', 'jouleThomsonCoefficient', 'heatCapacityCp'}, ...
        '(volume + jouleThomsonCoefficient .* heatCapacityCp) ./ T'
    'entropy', 'P', {'volume', 'jouleThomsonCoefficient', 'heatCapacityCp'}, ...
        '-(volume + jouleThomsonCoefficient .* heatCapacityCp) ./ T'
    };
for k = 1:size(relations, 1)
    if all(ismember(lower([relations(k, 1), relations{k, 3}]), lower(s.single)))
        for at = s.states
            tally = checkDifferences(s, tally, at, relations{k, :});
        end
    end
end
end
