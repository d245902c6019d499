function [points, why, failures] = threePhaseTrace(model, system, z, start, Pmin)
%threePhaseTrace  A line on which a third phase appears, as far as the package's flash finds the three phases.
%
%   [points, why, failures] = threePhaseTrace(model, system, z, start, Pmin)
%
%   START is a point of solvePoint with the equations SYSTEM of threePhaseSystem. WHY is a sentence on its end; it is
%   empty at PMIN, where a phase is used up and where two become the same. FAILURES has a sentence on points before at
%   which the flash fails, if it does.
n = numel(z);
why = '';
most = 200;
[points, ended] = traceCurve(system, start, most);
if system.mirrored && ended == -1 && numel(points) < most
    points(end) = []; % the points beyond are the same again
    ended = 2 * n + 1;
end
[last, failing] = stableUpTo(model, z, points);
if last < numel(points)
    points = points(1:last);
    ended = -4;
end
failures = failuresAt('the package''s flash fails', 'points', curveOf(points, NaN), failing);
if ended ~= 2 * n + 1 && ~(ended == 2 * n + 3 && points(end).v(end) < log(Pmin) + 1e-6)
    final = [start, points];
    final = final(end);
    lighter = final.densities(2) < min(final.densities([1, 3]));
    kind = NaN;
    kind(lighter) = 0;
    why = reasonOfEnd(model, z, curveOf(final, kind), ended, 'third phase');
end
end

% The last point before which a flash of the mixture with some of the new phase finds all three again, and where it
% fails before that. Where it fails with so much of it, it has to find the other two without. With two compounds three
% phases have no amounts; there it has to find two of them, next to the point.
function [last, failing] = stableUpTo(model, z, points)
n = numel(z);
share = 0.3 * (n > 2);
off = deviation(model, z, points, share, 1 - 1e-6 * (n == 2), 1e-3);
again = find(isnan(off) & share > 0);
if ~isempty(again)
    off(again) = deviation(model, z, points(again), 0, 1, 1e-5);
end
last = find([off > 0; true], 1) - 1;
failing = isnan(off(1:last, 1));
last = find([true; ~failing], 1, 'last') - 1; % where it fails, a point beyond has to tell
failing = find(failing(1:last));
end

% How much more the flash's volume of a mixture with this share of the new phase is off than it may be.
function off = deviation(model, z, points, share, beside, most)
n = numel(z);
V = vertcat(points.v);
K = exp(V(:, 1:n));
part = V(:, 2 * n + 1);
A = z ./ (1 + part .* (K - 1));
C = A .* exp(V(:, n + 1:2 * n));
C = C ./ sum(C, 2);
X = ofAllCompounds(model, (1 - share) * z + share * C);
volume = capeOpenMultiFlash(model.handle, X, 'Temperature', exp(V(:, end - 1)) * beside, 'Pressure', exp(V(:, end)), ...
                            'Unspecified', 'volume');
densities = vertcat(points.densities);
expected = (1 - share) * ((1 - part) ./ densities(:, 1) + part ./ densities(:, 3)) + share ./ densities(:, 2);
near = abs(log(densities(:, 1) ./ densities(:, 2))) < 0.3 | abs(log(densities(:, 3) ./ densities(:, 2))) < 0.3;
off = abs(volume ./ expected - 1) - most * (1 + 20 * near);
end
