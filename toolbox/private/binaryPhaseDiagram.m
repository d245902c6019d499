function [x, level, y] = binaryPhaseDiagram(handle, compounds, quantity, value)
%binaryPhaseDiagram  Boiling liquid and its vapor for two compounds, from one pure compound towards the other.
%
%   [x, level, y] = binaryPhaseDiagram(handle, compounds, quantity, value)
%
%   QUANTITY is the one that is held at VALUE, 'Temperature' or 'Pressure'; LEVEL holds the other. Begins at pure
%   compound 2 or, if that does not boil under the condition, at pure compound 1. Ends at the other pure compound, or at
%   the critical point of the mixture.
pair = pairOf(handle, compounds);
if ~isnumeric(value) || ~isscalar(value) || ~(value > 0)
    error('Verdanth:error', 'Expected a positive %s', lower(quantity));
end
[restore, mass] = moleBasis(); %#ok<ASGLU>
[vapor, liquid] = vaporAndLiquid(handle);
constants = criticalConstants(handle, pair);
count = numel(capeOpenCompoundList(handle));
isotherm = strcmp(quantity, 'Temperature');
if isotherm
    boils = value < constants.T;
    limits = [0.5, 0.5, 0.25, 0.03];
else
    boils = value < constants.P;
    limits = [0.5, 0.5, 0.02, 0.03];
end
V = zeros(0, 4);
for first = [2, 1]
    if size(V, 1) < 2 && boils(first)
        V = traceCurve(@equations, startAt(first), 4, 2 * first - 3, limits, @review);
    end
end
if size(V, 1) < 2
    error('Verdanth:error', 'No equilibrium of vapor and liquid found for the two compounds');
end
x = V(:, 4);
y = x .* exp(V(:, 1));
level = exp(V(:, 3));
[x, level, y] = closeAtCriticalPoint(V, x, level, y, @ratioOfDensities);
if x(1) > x(end)
    x = flipud(x);
    y = flipud(y);
    level = flipud(level);
end
if mass
    weights = capeOpenConstant(handle, 'molecularWeight');
    x = massFraction(x, weights(pair));
    y = massFraction(y, weights(pair));
end

    % The variables: logarithms of the ratios of vapor to liquid fractions, that of the level, fraction 1 in the liquid.
    function v = startAt(compound)
        c = struct('T', constants.T(compound), 'P', constants.P(compound), ...
                   'acentric', constants.acentric(compound));
        if isotherm
            T = value;
            P = c.P * exp(5.373 * (1 + c.acentric) * (1 - c.T / T));
            start = P;
        else
            P = value;
            T = c.T / (1 - log(P / c.P) / (5.373 * (1 + c.acentric)));
            start = T;
        end
        v = [wilson(constants, T, P), log(start), compound == 1];
    end

    function [Z, T, P] = conditions(points)
        Z = zeros(size(points, 1), count);
        Z(:, pair) = [points(:, 4), 1 - points(:, 4)];
        T = exp(points(:, 3));
        P = T;
        held = value * ones(size(T));
        if isotherm
            T = held;
        else
            P = held;
        end
    end

    function F = equations(points)
        [Z, T, P] = conditions(points);
        ratios = zeros(size(Z));
        ratios(:, pair) = points(:, 1:2);
        F = saturationEquations(handle, {liquid, vapor}, Z, ratios, T, P);
        F = F(:, [pair, end]);
    end

    function ratio = ratioOfDensities(v)
        [Z, T, P] = conditions(v);
        Y = zeros(1, count);
        Y(pair) = Z(pair) .* exp(v(1:2));
        ratio = capeOpenSinglePhaseProp(handle, 'density', T, P, Z, liquid) ...
                / capeOpenSinglePhaseProp(handle, 'density', T, P, Y / sum(Y), vapor);
    end

    function [next, fixed, last] = review(next, fixed, points)
        here = points(end, :);
        pure = min(max(next(4), 0), 1);
        last = pure ~= next(4) || (size(points, 1) > 1 && any(pure == [0, 1]));
        if last
            next = here + (next - here) * (pure - here(4)) / (next(4) - here(4));
            next(4) = pure;
            fixed = 4;
        elseif (max(abs(next(1:2))) < 0.1 || any(next(1:2) .* here(1:2) < 0)) && ratioOfDensities(here) < 2
            % The critical point is near, and no azeotrope; beyond it the same points come again.
            [distance, fixed] = max(abs(here(1:2)));
            goal = min(0.05, distance / 2) * sign(here(fixed));
            next = here + (next - here) * (goal - here(fixed)) / (next(fixed) - here(fixed));
            last = true;
        end
    end
end

function pair = pairOf(handle, compounds)
names = capeOpenCompoundList(handle);
if ~iscellstr(compounds) || numel(compounds) ~= 2 %#ok<ISCLSTR>
    error('Verdanth:error', 'Expected a cell array with the names of two compounds');
end
pair = zeros(1, 2);
for k = 1:2
    found = find(strcmpi(names, compounds{k}), 1);
    if isempty(found)
        error('Verdanth:error', 'The package has no compound "%s"', compounds{k});
    end
    pair(k) = found;
end
if pair(1) == pair(2)
    error('Verdanth:error', 'The two compounds are the same');
end
end

% Near the critical point the mean fraction and the level go with the square of the distance.
function [x, level, y] = closeAtCriticalPoint(V, x, level, y, ratioOfDensities)
[distance, k] = max(abs(V(end, 1:2)));
if size(V, 1) < 3 || distance > 0.2 || ratioOfDensities(V(end, :)) > 1.5
    return
end
square = V(end - 1:end, k) .^ 2;
values = [x + y, log(level)];
limit = values(end, :) - square(2) * (values(end, :) - values(end - 1, :)) / (square(2) - square(1));
x(end + 1) = limit(1) / 2;
y(end + 1) = limit(1) / 2;
level(end + 1) = exp(limit(2));
end

function w = massFraction(x, weights)
w = x * weights(1) ./ (x * weights(1) + (1 - x) * weights(2));
end
