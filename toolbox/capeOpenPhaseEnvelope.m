function [T, P, vaporFraction, critical] = capeOpenPhaseEnvelope(handle, Z, Pmin)
%capeOpenPhaseEnvelope  Phase envelope of a mixture, calculated and drawn.
%
%   [T, P, vaporFraction, critical] = capeOpenPhaseEnvelope(handle, Z, Pmin)
%
%   Follows the curve of dew points from a low pressure through the critical
%   point, and the curve of bubble points down to the same pressure, and draws
%   both into the current axes. Bubble points of some mixtures go on to any
%   pressure; they are followed up to 2000 bar. It needs no flash, but
%   logarithms of fugacity coefficients from the package, in a vapor and in a
%   liquid phase.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     Z       composition, double with one value for each compound: mole
%             fractions, in mass basis mass fractions; two or more are above 0
%     Pmin    pressure where the curves begin and end, in Pa; 1e5 if it is
%             left out
%
%   Results:
%     T       temperatures along the curve in K, double N-by-1
%     P       pressures in Pa, double N-by-1
%     vaporFraction
%             double N-by-1: 1 at a dew point, 0 at a bubble point
%     critical
%             temperature and pressure of the critical point, double 1-by-2;
%             NaN if the curve did not come to one
%
%   Errors:
%     'Invalid number of arguments for capeOpenPhaseEnvelope'
%             There are fewer than have to be given.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Invalid number of values for compositions: must match number of compounds'
%             Z has more or fewer values than the package has compounds.
%     'A phase envelope needs two or more compounds'
%             Fewer values of Z are above 0.
%     'Expected a positive pressure'
%             Pmin is not a positive scalar.
%     'No dew point found at ... Pa'
%             Try another Pmin.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     [T, P, vaporFraction, critical] = capeOpenPhaseEnvelope(handle, X);
%     critical
%     capeOpenRelease(handle)
%
%   See also capeOpenPxy, capeOpenTxy, capeOpenMultiFlash.
if nargin < 2
    error('Verdanth:error', 'Invalid number of arguments for capeOpenPhaseEnvelope');
end
if nargin < 3
    Pmin = 1e5;
end
count = numel(capeOpenCompoundList(handle));
if numel(Z) ~= count
    error('Verdanth:error', 'Invalid number of values for compositions: must match number of compounds');
end
if ~isnumeric(Pmin) || ~isscalar(Pmin) || ~(Pmin > 0)
    error('Verdanth:error', 'Expected a positive pressure');
end
[restore, mass] = moleBasis(); %#ok<ASGLU>
Z = reshape(Z, 1, count);
if mass
    Z = Z ./ capeOpenConstant(handle, 'molecularWeight');
end
Z = Z / sum(Z);
present = find(Z > 0);
if numel(present) < 2
    error('Verdanth:error', 'A phase envelope needs two or more compounds');
end

[V, heavy] = envelopePoints(handle, Z, present, Pmin);
n = numel(present);
T = exp(V(:, n + 1));
P = exp(V(:, n + 2));
vaporFraction = double(V(:, heavy) > 0);
critical = criticalPoint(V, heavy, n);
drawEnvelope(T, P, vaporFraction, critical);
end

% Rows: for each compound that is present the logarithm of its ratio in new phase and mixture, then the logarithms of
% temperature and pressure. The new phase is a liquid as long as the compound of number HEAVY is enriched in it.
function [V, heavy] = envelopePoints(handle, Z, present, Pmin)
Pmax = 2e8; % Pa; with some compounds bubble points go on to any pressure
[vapor, liquid] = vaporAndLiquid(handle);
constants = criticalConstants(handle, present);
n = numel(present);
start = startOf(-1);
[scale, heavy] = max(start(1:n));
limits = [0.1 * scale * ones(1, n), 0.015, 0.12];
V = traceCurve(@equations, start, n + 2, 1, limits, @review);
if size(V, 1) < 2
    error('Verdanth:error', 'No dew point found at %g Pa', Pmin);
end
if V(end, heavy) > 0 || V(end, n + 2) > log(Pmin) + 1e-6
    % It has not come back: the bubble points from their own beginning.
    bubble = traceCurve(@equations, startOf(1), n + 2, 1, limits, @reviewBubble);
    if ~isempty(bubble)
        V = [V(V(:, heavy) > 0, :); flipud(bubble)];
    end
end

    % Estimates at Pmin for a first liquid (-1) or a first vapor (1).
    function v = startOf(side)
        T = temperatureOfSum(constants, Z(present), Pmin, side);
        v = [side * wilson(constants, T, Pmin), log(T), log(Pmin)];
    end

    function F = equations(points)
        rows = size(points, 1);
        ratios = zeros(rows, numel(Z));
        ratios(:, present) = points(:, 1:n);
        labels = {vapor, liquid};
        if points(1, heavy) < 0
            labels = {liquid, vapor};
        end
        F = saturationEquations(handle, labels, repmat(Z, rows, 1), ratios, ...
                                exp(points(:, n + 1)), exp(points(:, n + 2)));
        F = F(:, [present, end]);
        if max(abs(points(1, 1:n))) < 1e-3 * scale
            F(:) = NaN; % the same phase twice, which solves the equations anywhere
        end
    end

    % At the critical point the phases are the same: that is stepped across.
    function [next, fixed, last] = review(next, fixed, points)
        here = points(end, :);
        [distance, widest] = max(abs(here(1:n)));
        if distance < 0.3 * scale
            fixed = widest;
        end
        if max(abs(next(1:n))) < 0.03 * scale && distance > max(abs(next(1:n)))
            slope = next - here;
            next = here + slope * (-2 * here(widest) / slope(widest));
        end
        last = next(n + 2) < log(Pmin);
        if last
            next = here + (next - here) * (log(Pmin) - here(n + 2)) / (next(n + 2) - here(n + 2));
            fixed = n + 2;
        end
        last = last || here(n + 2) > log(Pmax);
    end

    % Dew points are not wanted a second time.
    function [next, fixed, last] = reviewBubble(next, fixed, points)
        [next, fixed, last] = review(next, fixed, points);
        if next(heavy) > 0
            next = points(end, :);
            last = true;
        end
    end
end

% Where the estimate of the new phase has fractions with the sum 1.
function T = temperatureOfSum(constants, Z, P, side)
below = 20;
above = 2000;
while above - below > 1e-3
    T = (below + above) / 2;
    if (sum(Z .* exp(side * wilson(constants, T, P))) - 1) * side < 0
        below = T;
    else
        above = T;
    end
end
end

% The phases are the same where all ratios are 1; between the two points on each side of it, if they are near.
function critical = criticalPoint(V, heavy, n)
k = find(V(1:end - 1, heavy) > 0 & V(2:end, heavy) <= 0, 1);
critical = [NaN, NaN];
if isempty(k) || max(max(abs(V(k:k + 1, 1:n)))) > 0.3 * max(abs(V(1, 1:n)))
    return
end
near = max(1, k - 1):min(size(V, 1), k + 2);
if numel(unique(V(near, heavy))) < numel(near)
    near = k:k + 1;
end
for c = 1:2
    critical(c) = exp(interp1(V(near, heavy), V(near, n + c), 0, 'pchip'));
end
end

function drawEnvelope(T, P, vaporFraction, critical)
dew = vaporFraction == 1;
last = find(dew, 1, 'last');
middle = [critical(1), critical(2) / 1e5];
dewLine = [T(1:last), P(1:last) / 1e5];
bubbleLine = [T(last + 1:end), P(last + 1:end) / 1e5];
if ~any(isnan(middle))
    dewLine = [dewLine; middle];
    bubbleLine = [middle; bubbleLine];
end
plot(dewLine(:, 1), dewLine(:, 2), 'r-', bubbleLine(:, 1), bubbleLine(:, 2), 'b-', middle(1), middle(2), 'ko');
xlabel('temperature / K');
ylabel('pressure / bar');
title('Phase envelope');
legend({'dew points', 'bubble points', 'critical point'}, 'Location', 'northwest');
end
