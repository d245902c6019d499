function [stable, vaporFraction] = splitsIntoBoth(model, Z, W, points, T, P)
%splitsIntoBoth  Whether the package's flash agrees that two phases are in equilibrium and nothing else is.
%
%   [stable, vaporFraction] = splitsIntoBoth(model, Z, W, points, T, P)
%
%   At each of POINTS of a curve (see solvePoint) a flash of 70 parts of the mixture, with the mole fractions Z (one row
%   or one for each point), and 30 of the new phase with W has to find just these two again: then both are stable. T and
%   P are columns; if they are left out, the last two variables are their logarithms. VAPORFRACTION is 1 where the
%   mixture is the vapor of the two, 0 where the new phase is it, and NaN where the flash calls both liquids. STABLE is
%   NaN where the flash fails.
share = 0.3;
if nargin < 5
    V = vertcat(points.v);
    T = exp(V(:, end - 1));
    P = exp(V(:, end));
end
X = ofAllCompounds(model, (1 - share) * Z + share * W);
[volume, fraction] = capeOpenMultiFlash(model.handle, X, 'Temperature', T, 'Pressure', P, 'Unspecified', ...
                                        {'volume', 'vaporFraction'});
densities = vertcat(points.densities);
expected = (1 - share) ./ densities(:, 1) + share ./ densities(:, 2);
difference = abs(log(densities(:, 2) ./ densities(:, 1)));
off = abs(volume ./ expected - 1);
% Phases that are nearly the same are one for the flash, or not quite converged.
near = (difference < 0.2) .* difference .^ 2 .* (0.05 + 0.45 * (fraction == 0 | fraction == 1));
stable = double(off < 1e-5 + 1e-4 * (difference < 0.5) + near);
stable(isnan(volume)) = NaN;
vaporFraction = double(densities(:, 1) < densities(:, 2));
% Names that the flash gives to phases that are nearly the same mean little.
% Were they one to it, the volume would be off by the square of what they differ.
sure = find(off < 1e-5 & (difference > 0.05 | off < 0.01 * max(abs(W - Z), [], 2) .^ 2));
vaporFraction(sure) = double(fraction(sure) > 0.5);
vaporFraction(sure(fraction(sure) == 0 | fraction(sure) == 1)) = NaN;
sides = vertcat(points.phases);
for k = 1:numel(points)
    like = sure(sides(sure, 1) == sides(k, 1) & sides(sure, 2) == sides(k, 2));
    if ~isempty(like) && ~any(sure == k)
        [~, nearest] = min(abs(like - k));
        vaporFraction(k) = vaporFraction(like(nearest));
    end
end
end
