function s = packageLists(handle)
%packageLists  What a package lists, and the constants from which a sample of states begins.
%
%   A list that fails is empty, and a constant that fails NaN.
s = struct('handle', handle);
s.compounds = capeOpenCompoundList(handle);
s.n = numel(s.compounds);
s.phases = capeOpenPhaseList(handle);
s.vapor = '';
for k = numel(s.phases):-1:1
    if strcmpi(capeOpenPhaseState(handle, s.phases{k}), 'Vapor')
        s.vapor = s.phases{k};
    end
end
s.single = listOf(@() capeOpenSinglePhasePropList(handle));
s.two = listOf(@() capeOpenTwoPhasePropList(handle));
s.T = listOf(@() capeOpenTDependentPropList(handle));
s.P = listOf(@() capeOpenPDependentPropList(handle));
s.constants = listOf(@() capeOpenConstantPropList(handle));
s.flashProps = listOf(@() capeOpenFlashPropList(handle));
s.molar = constantOr(handle, 'molecularWeight', NaN(1, s.n)) / 1000;
s.Tc = constantOr(handle, 'criticalTemperature', NaN(1, s.n));
s.Pc = constantOr(handle, 'criticalPressure', NaN(1, s.n));
end

function names = listOf(ask)
try
    names = ask();
catch
    names = cell(0, 1); % the checks of lists tell it
end
end

function values = constantOr(handle, name, values)
try
    given = capeOpenConstant(handle, name);
    if isnumeric(given) && numel(given) == numel(values)
        values = reshape(given, 1, []);
    end
catch
    % the checks of lists tell it
end
end
