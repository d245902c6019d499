function [dome, reasons, critical] = saturationDome(handle, Z, Pmin, name)
%saturationDome  Dew and bubble points of a mixture or a single compound with a property of the whole at each.
%
%   [dome, reasons, critical] = saturationDome(handle, Z, Pmin, name)
%
%   Z are fractions in the basis of the moment. DOME is a struct array of lines with the fields T, P, vaporFraction (see
%   envelopeLines) and value, the property NAME. REASONS are sentences on what is not complete,
%   CRITICAL is the temperature of the mixture's critical point or NaN.
critical = NaN;
if sum(Z > 0) == 1
    [dome, reasons] = domeOfOne(handle, Z, Pmin, name);
else
    [lines, reasons] = envelopeLines(handle, Z, Pmin);
    dome = struct('T', {}, 'P', {}, 'vaporFraction', {}, 'value', {});
    for line = lines
        if isnan(critical)
            critical = line.critical(1);
        end
        [V, place] = smoothCurve(line, 4);
        T = exp(V(:, end - 1));
        P = exp(V(:, end));
        vaporFraction = line.vaporFraction(round(place));
        value = valuesAlong(handle, Z, T, P, vaporFraction, size(line.points, 2) > sum(Z > 0) + 2, name);
        dome(end + 1) = struct('T', T, 'P', P, 'vaporFraction', vaporFraction, 'value', value); %#ok<AGROW>
        failing = failuresAt(['no ', name, ' is found'], 'points', dome(end), find(isnan(value)));
        reasons = [reasons, failing]; %#ok<AGROW>
    end
end
if isempty(dome)
    error('Verdanth:error', 'No dew point found at %g Pa', Pmin);
end
end

% The mixture is one phase there, or two liquids next to their vapor.
function value = valuesAlong(handle, Z, T, P, vaporFraction, twoLiquids, name)
value = NaN(size(T));
[vapor, liquid] = vaporAndLiquid(handle);
if twoLiquids
    value = capeOpenMultiFlash(handle, Z, 'Temperature', T * (1 - 1e-6), 'Pressure', P, 'Unspecified', name);
    return
end
dew = vaporFraction == 1;
if any(dew)
    value(dew) = capeOpenSinglePhaseProp(handle, name, T(dew), P(dew), Z, vapor);
end
if any(~dew)
    value(~dew) = capeOpenSinglePhaseProp(handle, name, T(~dew), P(~dew), Z, liquid);
end
end

function [dome, reasons] = domeOfOne(handle, Z, Pmin, name)
critical = criticalConstants(handle, find(Z > 0));
% Steps become small towards the critical point, where everything goes with a root of the distance to it.
u = linspace(0, 1, 80).';
P = exp(log(Pmin) + (log(critical.P) - log(Pmin)) * (1 - (1 - u) .^ 3));
P = P(1:end - 1);
dome = struct('T', {}, 'P', {}, 'vaporFraction', {}, 'value', {});
reasons = {};
if Pmin >= critical.P
    return
end
names = {'bubble points', 'dew points'};
for fraction = [1, 0]
    [T, value] = capeOpenMultiFlash(handle, Z, 'Pressure', P, 'vaporFraction', fraction, 'Unspecified', ...
                                    {'Temperature', name});
    failing = find(isnan(value));
    line = struct('T', T, 'P', P, 'vaporFraction', fraction * ones(size(P)), 'value', value);
    line.T(failing) = NaN;
    reasons = [reasons, failuresAt('the package''s flash fails', names{fraction + 1}, line, failing)]; %#ok<AGROW>
    if numel(failing) == numel(P)
        continue
    end
    rows = (find(~isnan(value), 1):find(~isnan(value), 1, 'last')).';
    if fraction == 0
        rows = flipud(rows);
    end
    for field = {'T', 'P', 'vaporFraction', 'value'}
        line.(field{1})(failing) = NaN; % a gap, where they are not at an end
        line.(field{1}) = line.(field{1})(rows);
    end
    dome(end + 1) = line; %#ok<AGROW>
end
end
