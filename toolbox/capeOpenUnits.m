function result = capeOpenUnits(values, from, to)
%capeOpenUnits  Values in other units.
%
%   result = capeOpenUnits(values, from, to)
%   unit = capeOpenUnits(unit, units)
%   units = capeOpenUnits()
%
%   The functions capeOpen... take and give values in the units of SI that
%   capeOpenPropUnit tells. This function converts them, one way or the other.
%   An object of capeopen.Package does so by itself, for the units that are
%   chosen for it.
%
%   Arguments:
%     values  numbers, of any size
%     from    unit in which they are, such as 'bar', 'degC' or 'kJ / kmol / K'.
%             What is behind a stroke is in the denominator, up to the next.
%     to      unit in which they are wanted
%     units   cell array of units without a stroke, such as {'kJ', 'degC'}
%
%   Results:
%     result  double, as many as values. A single temperature is a temperature;
%             in a unit with other parts it is a difference.
%     unit    the unit with those in place of its parts that measure the same:
%             'J / mol' and {'kJ', 'bar'} give 'kJ / mol'
%     units   n-by-1 cell array of all units there are
%
%   Errors:
%     'Invalid number of arguments for capeOpenUnits'
%             There are fewer than have to be given.
%     'Not a known unit: "..."'
%             Capital and small letters count. Units that are near it follow.
%     '"..." and "..." do not measure the same'
%             The one can not be converted into the other.
%
%   Example:
%     T = capeOpenUnits([25; 100], 'degC', 'K')
%     enthalpy = capeOpenUnits(-12500, capeOpenPropUnit('enthalpy'), 'kJ/kmol')
%
%   See also capeOpenPropUnit, capeopen.Package.
switch nargin
    case 0
        result = unitTable();
    case 2
        given = libraryArguments({values, from});
        chosen = given{2};
        if ischar(chosen)
            chosen = {chosen};
        end
        for k = 1:numel(chosen)
            [~, ~, ~, parts] = unitOf(chosen{k});
            if ~isequal(parts(:, [2 4]), {1, 1})
                error('Verdanth:error', 'Not a known unit: "%s"', chosen{k});
            end
        end
        result = unitAmong(given{1}, chosen);
    case 3
        given = libraryArguments({[], values, from, to});
        result = converted(double(given{2}), given{3}, given{4});
    otherwise
        error('Verdanth:error', 'Invalid number of arguments for capeOpenUnits');
end
end

function values = converted(values, from, to)
if strcmp(from, to) && isOdd(from)
    return
end
[factor, dimension, offset] = unitOf(from);
[divisor, other, less] = unitOf(to);
if ~isequal(dimension, other)
    error('Verdanth:error', '"%s" and "%s" do not measure the same', from, to);
end
values = (values * factor + (offset - less)) / divisor;
end

% What the library names beside units of SI: fractions, and those of the radius of gyration and of the parachor.
function answer = isOdd(unit)
answer = any(strcmp(unit, {'mole fraction', 'mass fraction', 'M', 'm3 kg0.25 / (s 0.5 mol)'}));
end
