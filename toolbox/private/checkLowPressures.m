function tally = checkLowPressures(s, tally)
%checkLowPressures  What keeps a vapor from being an ideal gas goes with the pressure, and in proportion to it.
%
%   What is zero for an ideal gas is taken at 1000, 500 and 250 Pa, above where anything condenses. As a series in
%   pressure, its first and second power go by extrapolation. The limit for the rest is what the second power was, and
%   1e-9 of the terms, for rounding, times the sum of the weights of the extrapolation, 5.
if isempty(s.vapor)
    return
end
mixed = find(sum(s.Z > 0, 2) > 1);
pure = find(sum(s.Z > 0, 2) == 1);
rows = [mixed(evenly(numel(mixed), 6 - 5 * s.quick)); pure(evenly(numel(pure), 12 - 11 * s.quick))];
states = struct('T', {}, 'X', {});
for row = rows.'
    for factor = [0.8, 1.1]
        states(end + 1) = struct('T', factor * max(s.T0(s.Z(row, :) > 0)), 'X', s.Z(row, :)); %#ok<AGROW>
    end
end
table = relations();
for k = 1:size(table, 1)
    [names, ideal] = table{k, 2:3};
    if all(ismember(lower(names), lower(s.single))) && (isempty(ideal) || any(strcmpi(s.T, ideal)))
        tally = compared(s, tally, states, table(k, :));
    end
end
end

% What is said of it, the properties, an ideal one of the pure compounds, what is zero, and the size of its terms.
%
% In these stand the properties, columns for the three pressures P; T, X, R, and M in kg/mol; ideal, which is the mean
% of the ideal one; pure, which is that of the first property of the pure gases; and warm and warmIdeal, the first
% property and ideal at a temperature that is a tenth higher.
function table = relations()
table = {
    'the compressibility factor is not 1', {'compressibilityFactor'}, '', 'compressibilityFactor - 1', '1'
    'P * v is not R * T', {'volume'}, '', 'P .* volume / (R * T) - 1', '1'
    'P / density is not R * T', {'density'}, '', 'P ./ (density * R * T) - 1', '1'
    'the compressibility is not 1 / P', {'compressibility'}, '', 'P .* compressibility - 1', '1'
    'the fugacity coefficients are not 1', {'fugacityCoefficient'}, '', 'fugacityCoefficient(:, X > 0) - 1', '1'
    'the logarithms of the fugacity coefficients are not 0', {'logFugacityCoefficient'}, '', ...
        'logFugacityCoefficient(:, X > 0)', '1'
    'the fugacities are not the partial pressures', {'fugacity'}, '', ...
        'fugacity(:, X > 0) ./ (P * X(X > 0)) - 1', '1'
    'the difference of the heat capacities is not R', {'heatCapacityCp', 'heatCapacityCv'}, '', ...
        'heatCapacityCp - heatCapacityCv - R', 'abs(heatCapacityCp)'
    'the heat capacity is not that of the ideal gas', {'heatCapacityCp'}, 'idealGasHeatCapacity', ...
        'heatCapacityCp - ideal', 'abs(heatCapacityCp)'
    'the speed of sound is not that of the ideal gas', {'speedOfSound', 'heatCapacityCp', 'heatCapacityCv'}, '', ...
        'speedOfSound .^ 2 .* M .* heatCapacityCv ./ (heatCapacityCp * R * T) - 1', '1'
    'the excess enthalpy is not 0', {'excessEnthalpy'}, '', 'excessEnthalpy', 'R * T'
    'the excess Gibbs energy is not 0', {'excessGibbsEnergy'}, '', 'excessGibbsEnergy', 'R * T'
    'the excess entropy is not 0', {'excessEntropy'}, '', 'excessEntropy', 'R'
    'the enthalpy is not that of the pure gases', {'enthalpy'}, '', 'enthalpy - pure', ...
        'abs(enthalpy) + R * T'
    'the entropy is not that of the pure gases and of mixing', {'entropy'}, '', ...
        'entropy - pure + R * sum(X(X > 0) .* log(X(X > 0)))', 'abs(entropy) + R'
    'the Gibbs energy is not that of the pure gases and of mixing', {'gibbsEnergy'}, '', ...
        'gibbsEnergy - pure - R * T * sum(X(X > 0) .* log(X(X > 0)))', 'abs(gibbsEnergy) + R * T'
    'the enthalpy does not rise with temperature as that of the ideal gas', {'enthalpy'}, 'idealGasEnthalpy', ...
        'warm - enthalpy - warmIdeal + ideal', 'abs(enthalpy) + R * T'
    'the entropy does not rise with temperature as that of the ideal gas', {'entropy'}, 'idealGasEntropy', ...
        'warm - entropy - warmIdeal + ideal', 'abs(entropy) + R'
    };
end

function tally = compared(s, tally, states, test)
[what, names, ideal, zero, terms] = test{:};
P = [1000; 500; 250];
[deviation, limit] = deal(NaN(numel(states), 1));
for k = 1:numel(states)
    [T, X] = deal(states(k).T, states(k).X);
    ask = @(name, T, X) phaseValues(s, name, T, P, X, s.vapor);
    values = cellfun(@(name) ask(name, T, X), names, 'UniformOutput', false);
    more = {X * s.molar.', NaN, NaN, NaN, NaN};
    if uses(zero, 'pure')
        more{3} = ofPure(@(x) ask(names{1}, T, x), X);
    end
    if uses(zero, 'warm')
        more{4} = ask(names{1}, 1.1 * T, X);
    end
    if ~isempty(ideal)
        more([2, 5]) = {idealOf(s, ideal, T, X), idealOf(s, ideal, 1.1 * T, X)};
    end
    width = 1 + (s.n - 1) * ~isempty(strfind(zero, '(:, X > 0)')); %#ok<STREMP>
    if ~all(cellfun(@(v) isequal(size(v), [3, width]), values)) || isempty(more{4})
        continue % found elsewhere
    end
    known = [{'M', 'ideal', 'pure', 'warm', 'warmIdeal'}, names];
    q = evaluated(zero, known, [more, values], T, P, X, s.R);
    scale = max(evaluated(terms, known, [more, values], T, P, X, s.R));
    [off, allowed] = deal(abs([1 / 3, -2, 8 / 3] * q), abs([1, -3, 2] * q) + 5e-9 * scale);
    [~, worst] = max(off ./ allowed);
    [deviation(k), limit(k)] = deal(off(worst), allowed(worst));
end
limit(~isfinite(deviation)) = NaN;
at = statesOf(s, s.vapor, [states.T], 1000 * ones(1, numel(states)), vertcat(states.X));
tally = checkCompared(tally, 'failure', [s.vapor, ' at low pressure: ', what], deviation, limit, at, ...
                      @(row) linesOf(s, states(row), test));
end

function answer = uses(expression, name)
answer = ~isempty(regexp(expression, ['\<', name, '\>'], 'once'));
end

function mean = ofPure(ask, X)
mean = 0;
for j = find(X > 0)
    value = ask(double((1:numel(X)) == j));
    if numel(value) ~= 3
        value = NaN(3, 1);
    end
    mean = mean + X(j) * value;
end
end

function mean = idealOf(s, name, T, X)
mean = NaN;
try
    values = capeOpenTDependentProp(s.handle, name, T);
    mean = values(X > 0) * X(X > 0).';
catch
    % it is not known at this temperature
end
end

function lines = linesOf(s, state, test)
[~, names, ideal, zero, terms] = test{:};
ask = @(name, T, X) sprintf('capeOpenSinglePhaseProp(handle, %s, %s, P, %s, ''%s'');', name, T, X, s.vapor);
mean = @(T) sprintf('v = capeOpenTDependentProp(handle, ''%s'', %s);', ideal, T);
lines = {s.opening; [numbersText('T', state.T), ' P = [1000; 500; 250];']; numbersText('X', state.X)
         sprintf('R = %.17g; M = X * capeOpenConstant(handle, ''molecularWeight'').'' / 1000;', s.R)
         sprintf('[%s] = %s', strjoin(names, ', '), ask(['{''', strjoin(names, ''', '''), '''}'], 'T', 'X'))};
if uses(zero, 'pure')
    lines = [lines; {'pure = 0;'; sprintf('for j = find(X > 0), v = %s pure = pure + X(j) * v; end', ...
                                          ask(['''', names{1}, ''''], 'T', 'double((1:numel(X)) == j)'))}];
end
if uses(zero, 'warm')
    lines{end + 1} = ['warm = ', ask(['''', names{1}, ''''], '1.1 * T', 'X')];
    lines = [lines; {[mean('1.1 * T'), ' warmIdeal = v(X > 0) * X(X > 0).'';']}];
end
if ~isempty(ideal)
    lines = [lines; {[mean('T'), ' ideal = v(X > 0) * X(X > 0).'';']}];
end
lines = [lines; {sprintf('q = %s;', zero); 'deviation = abs([1 / 3, -2, 8 / 3] * q)'
                 sprintf('limit = abs([1, -3, 2] * q) + 5e-9 * max(%s)', terms)}];
end
