function tally = checkDerivatives(s, tally, variable)
%checkDerivatives  Each listed derivative by temperature or pressure against differences.
suffix = {'.Dtemperature', '.Dpressure'};
suffix = suffix{1 + (variable == 'P')};
for name = reshape(s.single, 1, [])
    base = name{1}(1:max(0, end - numel(suffix)));
    if isempty(base) || ~strcmpi(name{1}, [base, suffix]) || strcmpi(base, 'diffusionCoefficient')
        continue % of pairs of compounds there is but one at a time
    end
    for at = s.states
        if ~isempty(at.T)
            tally = checkDifferences(s, tally, at, base, variable, name, strrep(name{1}, '.', '_'));
        end
    end
end
end
