function [unlike, failing] = unlikeTheFlash(handle, Z, line)
%unlikeTheFlash  The numbers of the points on a line at which the package's flash finds no dew or bubble point.
%
%   [unlike, failing] = unlikeTheFlash(handle, Z, line)
%
%   LINE has the fields T, P and vaporFraction, which is 1 at dew points, 0 at bubble points and NaN at others, of which
%   nothing is said. At a dew or bubble point and a millionth around it the flash of the mixture Z has to find other
%   phases in one place than in another. At FAILING it answers in one of them at most.
asked = find(~isnan(line.vaporFraction));
shifts = 1e-6 * [0, -1, 1, 0, 0; 0, 0, 0, -1, 1];
T = line.T(asked) * (1 + shifts(1, :));
P = line.P(asked) * (1 + shifts(2, :));
fraction = capeOpenMultiFlash(handle, Z, 'Temperature', T(:), 'Pressure', P(:), 'Unspecified', 'vaporFraction');
fraction = reshape(fraction, size(T));
one = any(fraction == 0 | fraction == 1, 2);
both = any(fraction > 0 & fraction < 1, 2);
alike = false(size(asked)); % of many a fraction tells already
for k = find(one ~= both).'
    alike(k) = arePhasesAlike(handle, Z, T(k, :), P(k, :));
end
unlike = asked(alike);
failing = asked(sum(~isnan(fraction), 2) < 2);
end

function alike = arePhasesAlike(handle, Z, T, P)
names = cell(0);
for k = 1:numel(T)
    try
        names{end + 1} = capeOpenFlash(handle, Z, 'Temperature', T(k), 'Pressure', P(k), 'Unspecified'); %#ok<AGROW>
    catch failure
        rethrowOthers(failure);
    end
end
alike = numel(names) > 1 && isequal(names{:});
end
