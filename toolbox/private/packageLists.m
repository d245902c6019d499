function s = packageLists(handle)
%packageLists  What a package lists, and the constants from which a sample of states begins.
%
%   A list that fails is empty, and a constant that fails NaN. T0 and P0 are critical ones, or ordinary ones where a
%   compound has none.
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
s.molar = numbersOf(handle, 'molecularWeight', s.n) / 1000;
s.Tc = numbersOf(handle, 'criticalTemperature', s.n);
s.T0 = ordinary(s.Tc, 400);
s.P0 = ordinary(numbersOf(handle, 'criticalPressure', s.n), 4e6);
end

function values = numbersOf(handle, name, count)
values = constantValues(handle, name, count);
if ~isnumeric(values)
    values = NaN(1, count);
end
end

function values = ordinary(values, instead)
values(~(values > 0)) = instead;
end

function names = listOf(ask)
try
    names = ask();
catch
    names = cell(0, 1); % the checks of lists tell it
end
end
