function tally = checkPure(s, tally)
%checkPure  Properties of pure compounds by temperature or pressure are there, and fit each other and the constants.
%
%   Derivatives come from differences, with the limit of the function extrapolated. What comes from data of different
%   sources is allowed more: a boiling point 3 K, Clausius-Clapeyron 8 %, by which cubic equations miss the heat of
%   vaporization of alcohols; and beyond a tenth of that there is a note.
tally = listed(s, tally, s.T, 'TDependent', 0.7 * s.T0);
tally = listed(s, tally, s.P, 'PDependent', 101325 * ones(1, s.n));
pairs = {'idealGasEnthalpy', 'idealGasHeatCapacity', 'idealGasHeatCapacity'
         'idealGasEntropy', 'idealGasHeatCapacity', 'idealGasHeatCapacity ./ T'};
for k = 1:size(pairs, 1)
    if all(ismember(lower(pairs(k, 1:2)), lower(s.T)))
        tally = differences(s, tally, pairs{k, :});
    end
end
if has(s.T, {'vaporPressure'}) && has(s.constants, {'normalBoilingPoint'})
    tally = boiling(s, tally);
end
if has(s.T, {'vaporPressure', 'heatOfVaporization', 'volumeChangeUponVaporization'})
    tally = clapeyron(s, tally);
end
if has(s.T, {'vaporPressure'}) && has(s.P, {'boilingPointTemperature'})
    tally = inverse(s, tally);
end
end

function answer = has(list, names)
answer = all(ismember(lower(names), lower(list)));
end

function tally = listed(s, tally, names, kind, at)
for name = reshape(names, 1, [])
    tally.asked = tally.asked + 1;
    values = pureValues(s, name{1}, at, kind);
    lines = {s.opening; sprintf('value = capeOpen%sProp(handle, ''%s'', %.17g)', kind, name{1}, at(1))};
    count = numberOfValues(s, name{1}, kind, at(1));
    if ~isnan(count) && count ~= s.n
        tally = checkFound(tally, 'failure', sprintf('%s has %d values for %d compounds', name{1}, count, s.n), ...
            sprintf('%.6g', at(1)), [lines; {'numbers = numel(value)'}]);
    elseif all(isnan(values))
        tally = checkFound(tally, 'failure', sprintf('%s is listed, but no compound has it', name{1}), ...
            sprintf('%s at %.6g', s.compounds{1}, at(1)), lines);
    elseif any(isinf(values) | imag(values) ~= 0)
        k = find(isinf(values) | imag(values) ~= 0, 1);
        tally = checkFound(tally, 'failure', sprintf('%s is no number', name{1}), sprintf('%s at %.6g', ...
            s.compounds{k}, at(k)), lines);
    elseif any(values <= 0) && ~any(strcmpi(name{1}, {'idealGasEnthalpy', 'idealGasEntropy', 'virialCoefficient'}))
        k = find(values <= 0, 1);
        tally = checkFound(tally, 'failure', sprintf('%s is not positive', name{1}), sprintf('%s at %.6g', ...
            s.compounds{k}, at(k)), lines);
    end
end
end

% NaN where it fails.
function count = numberOfValues(s, name, kind, at)
ask = struct('TDependent', @capeOpenTDependentProp, 'PDependent', @capeOpenPDependentProp);
count = NaN;
try
    count = numel(ask.(kind)(s.handle, name, at));
catch
    % it is told otherwise
end
end

function tally = differences(s, tally, property, name, expression)
for T = [250, 400, 700]
    h = 3e-4 * T;
    [steps, weights] = differenceSteps();
    try
        f = capeOpenTDependentProp(s.handle, property, T + h * steps.');
        values = capeOpenTDependentProp(s.handle, name, T);
        f0 = capeOpenTDependentProp(s.handle, property, T);
    catch
        continue
    end
    d = num2cell(weights * f / h, 2);
    [derivative, limit] = extrapolated(d{:}, abs(f0), h);
    limit(~isfinite(f0)) = NaN;
    deviation = evaluated(expression, {name}, {values}, T, [], [], s.R) - derivative;
    limit = limit + 1e-7 * abs(derivative); % between ranges of a correlation there may be a seam
    lines = {s.opening; sprintf('T = %g; h = %.17g;', T, h)
             sprintf('f = capeOpenTDependentProp(handle, ''%s'', T + h * [0.5; -0.5; 0.25; -0.25; 0]);', property)
             sprintf('%s = capeOpenTDependentProp(handle, ''%s'', T);', name, name)
             'd2 = (f(1, :) - f(2, :)) / h; d3 = (f(3, :) - f(4, :)) / (h / 2);'};
    lines = [lines; extrapolatedLines(expression, 'abs(f(5, :))'); {'limit = limit + 1e-7 * abs((4 * d3 - d2) / 3)'}];
    tally = checkCompared(tally, 'failure', sprintf('d(%s)/dT is not %s at %g K', property, ...
        relationText(expression), T), deviation(:), limit(:), [], @(row) lines);
end
end

function tally = boiling(s, tally)
T = capeOpenConstant(s.handle, 'normalBoilingPoint');
P = pureValues(s, 'vaporPressure', T, 'TDependent');
slope = (log(pureValues(s, 'vaporPressure', T * 1.001, 'TDependent')) - log(P)) ./ (0.001 * T);
deviation = abs(log(P / 101325) ./ slope);
lines = @(k) {s.opening; 'T = capeOpenConstant(handle, ''normalBoilingPoint'');'
              sprintf('T = T(%d); P = capeOpenTDependentProp(handle, ''vaporPressure'', [T; 1.001 * T]);', k)
              sprintf('P = P(:, %d);', k)
              'slope = log(P(2) / P(1)) / (0.001 * T);'; 'deviation = abs(log(P(1) / 101325) / slope)'};
tally = banded(s, tally, 'The vapor pressure is 101325 Pa not at the normal boiling point, but K away', deviation, ...
    3, lines);
end

function tally = clapeyron(s, tally)
T = 0.75 * s.Tc;
P = @(T) pureValues(s, 'vaporPressure', T, 'TDependent');
slope = (P(T * 1.0005) - P(T * 0.9995)) ./ (0.001 * T);
heat = pureValues(s, 'heatOfVaporization', T, 'TDependent');
volume = pureValues(s, 'volumeChangeUponVaporization', T, 'TDependent');
deviation = abs(heat ./ (T .* volume .* slope) - 1);
lines = @(k) {s.opening; sprintf('T = %.17g;', T(k))
              'P = capeOpenTDependentProp(handle, ''vaporPressure'', T * [1.0005; 0.9995]);'
              'names = {''heatOfVaporization'', ''volumeChangeUponVaporization''};'
              '[heat, volume] = capeOpenTDependentProp(handle, names, T);'
              sprintf('k = %d; slope = (P(1, k) - P(2, k)) / (0.001 * T);', k)
              'deviation = abs(heat(k) / (T * volume(k) * slope) - 1)'};
tally = banded(s, tally, 'The heat of vaporization is not that of Clausius-Clapeyron', deviation, 0.08, lines);
end

function tally = inverse(s, tally)
T = pureValues(s, 'boilingPointTemperature', 101325 * ones(1, s.n), 'PDependent');
deviation = abs(pureValues(s, 'vaporPressure', T, 'TDependent') / 101325 - 1);
lines = @(k) {s.opening; 'T = capeOpenPDependentProp(handle, ''boilingPointTemperature'', 101325);'
              sprintf('P = capeOpenTDependentProp(handle, ''vaporPressure'', T(%d));', k)
              sprintf('deviation = abs(P(%d) / 101325 - 1)', k)};
tally = banded(s, tally, 'The vapor pressure at the boilingPointTemperature is not that pressure', deviation, 1e-2, ...
    lines);
end

% Compounds beyond the limit are a failure, and those beyond a tenth of it, where there are no others, a note.
function tally = banded(s, tally, what, deviation, limit, lines)
severity = 'failure';
if ~any(deviation > limit)
    severity = 'note';
    limit = limit / 10;
end
limits = limit * ones(s.n, 1);
limits(~isfinite(deviation)) = NaN;
tally = checkCompared(tally, severity, what, reshape(deviation, [], 1), limits, s.compounds, ...
    @(k) [lines(k); {sprintf('limit = %g', limit)}]);
end
