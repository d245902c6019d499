function kinds = callKinds(s)
%callKinds  The kinds of calls whose time and memory a check looks at, each with states at which the package answers.
%
%   A struct array: KIND is its name; ASK(rows) makes one call with a row for each of these states, of which there are
%   STATES; SETTING(row) are the lines that set one of them, and CALL the text of the call at it. ROWED is the variable
%   that has a row for each state of a batch, '' where there are no batches. Of properties of phases there is one of
%   each sort: each may be another part of a package.
kinds = struct('kind', {}, 'states', {}, 'ask', {}, 'setting', {}, 'call', {}, 'rowed', {});
for name = chosen(s.constants, {{'criticalTemperature', 'molecularWeight', '*'}})
    kinds = answered(kinds, ['constant ', name{1}], 1, @(rows) capeOpenConstant(s.handle, name{1}), ...
                     @(row) {s.opening}, sprintf('capeOpenConstant(handle, ''%s'')', name{1}), '');
end
kinds = ofPure(kinds, s, 'TDependent', s.T, {'vaporPressure', 'idealGasHeatCapacity', '*'}, 0.7 * s.T0(1));
kinds = ofPure(kinds, s, 'PDependent', s.P, {'boilingPointTemperature', '*'}, 101325);
kinds = ofPhases(kinds, s);
kinds = ofPairs(kinds, s);
kinds = ofFlashes(kinds, s);
end

% The first name of each sort that is listed; '*' stands for any.
function names = chosen(list, sorts)
names = cell(1, 0);
for k = 1:numel(sorts)
    for wanted = sorts{k}
        found = find(strcmpi(list, wanted{1}), 1);
        if strcmp(wanted{1}, '*')
            found = min(1, numel(list)) * ones(1, ~isempty(list));
        end
        if ~isempty(found)
            names{end + 1} = list{found}; %#ok<AGROW>
            break
        end
    end
end
end

function kinds = ofPure(kinds, s, kind, list, wanted, middle)
call = @(varargin) capeOpenTDependentProp(s.handle, varargin{:});
if strcmp(kind, 'PDependent')
    call = @(varargin) capeOpenPDependentProp(s.handle, varargin{:});
end
at = middle * (0.95 + 0.01 * (0:9).');
for name = chosen(list, {wanted})
    ask = @(rows) call(name{1}, at(rows));
    setting = @(row) {s.opening; numbersText('at', at(row))};
    kinds = answered(kinds, [kind, ' ', name{1}], numel(at), ask, setting, ...
                     sprintf('capeOpen%sProp(handle, ''%s'', at)', kind, name{1}), 'at');
end
end

function kinds = ofPhases(kinds, s)
at = withMost(s.states);
if isempty(at)
    return
end
sorts = {{'density', 'volume'}, {'enthalpy', 'entropy', 'gibbsEnergy'}, {'heatCapacityCp', 'heatCapacityCv'}, ...
         {'logFugacityCoefficient', 'fugacityCoefficient', 'fugacity'}, {'viscosity', 'thermalConductivity'}, ...
         ending(s.single, '.Dtemperature'), ending(s.single, '.Dpressure'), ending(s.single, '.Dmoles')};
for name = chosen(s.single, sorts)
    call = @(T, P, X) capeOpenSinglePhaseProp(s.handle, name{1}, T, P, X, at.phase);
    ask = @(rows) call(at.T(rows), at.P(rows), at.X(rows, :));
    kinds = answered(kinds, ['phase ', name{1}], numel(at.T), ask, ...
                     @(row) stateLines(s, at.T(row), at.P(row), at.X(row, :)), ...
                     sprintf('capeOpenSinglePhaseProp(handle, ''%s'', T, P, X, ''%s'')', name{1}, at.phase), 'T');
end
end

function at = withMost(states)
[most, k] = max(arrayfun(@(at) numel(at.T), states));
at = states(k(most > 0));
end

% Fugacities first: they are what derivatives are mostly used for.
function names = ending(list, suffix)
names = list(~cellfun(@isempty, regexpi(list, [strrep(suffix, '.', '\.'), '$'], 'once')));
names = [{['logFugacityCoefficient', suffix], ['enthalpy', suffix]}, reshape(names, 1, [])];
end

function kinds = ofPairs(kinds, s)
two = s.flashes(arrayfun(@(flash) numel(flash.phases) == 2, s.flashes));
if isempty(two)
    return
end
labels = two(1).phases(:);
two = two(arrayfun(@(flash) isequal(flash.phases(:), labels), two));
first = cellfun(@(X) X(1, :), {two.X}.', 'UniformOutput', false);
second = cellfun(@(X) X(2, :), {two.X}.', 'UniformOutput', false);
[T, P, X, Y] = deal([two.T].', [two.P].', vertcat(first{:}), vertcat(second{:}));
for name = chosen(s.two, {{'kvalue', 'logKvalue', '*'}})
    call = @(T, P, X, Y) capeOpenTwoPhaseProp(s.handle, name{1}, T, P, X, Y, labels{:});
    ask = @(rows) call(T(rows), P(rows), X(rows, :), Y(rows, :));
    setting = @(row) [stateLines(s, T(row), P(row), X(row, :)); {numbersText('X2', Y(row, :))}];
    text = sprintf('capeOpenTwoPhaseProp(handle, ''%s'', T, P, X, X2, ''%s'', ''%s'')', name{1}, labels{:});
    kinds = answered(kinds, ['two phases ', name{1}], numel(T), ask, setting, text, 'T');
end
end

% The states of other pairs are what flashes at temperature and pressure give; of one phase a vapor fraction tells
% nothing.
function kinds = ofFlashes(kinds, s)
solved = s.flashes(cellfun(@isempty, {s.flashes.problem}));
solved = solved(evenly(numel(solved), 20 - 12 * s.quick));
if isempty(solved)
    return
end
[Z, T, P] = deal(vertcat(solved.Z), [solved.T].', [solved.P].');
kinds = ofPair(kinds, s, {'Temperature', 'Pressure'}, Z, [T, P]);
names = {'vaporFraction', 'enthalpy', 'entropy', 'volume', 'internalEnergy'};
for name = names(ismember(lower(names), lower(s.flashProps)))
    try
        value = capeOpenMultiFlash(s.handle, Z, 'Temperature', T, 'Pressure', P, 'Unspecified', name{1});
    catch
        continue
    end
    good = isfinite(value) & (~strcmp(name{1}, 'vaporFraction') | (value > 0 & value < 1));
    kinds = ofPair(kinds, s, {'Pressure', name{1}}, Z(good, :), [P(good), value(good)]);
    kinds = ofPair(kinds, s, {'Temperature', name{1}}, Z(good, :), [T(good), value(good)]);
end
end

function kinds = ofPair(kinds, s, names, Z, values)
call = @(Z, a, b) capeOpenMultiFlash(s.handle, Z, names{1}, a, names{2}, b, 'Unspecified', names{1});
if ~isempty(Z)
    good = isfinite(call(Z, values(:, 1), values(:, 2)));
    [Z, values] = deal(Z(good, :), values(good, :));
end
ask = @(rows) call(Z(rows, :), values(rows, 1), values(rows, 2));
setting = @(row) {s.opening; numbersText('X', Z(row, :)); sprintf('a = %.17g; b = %.17g;', values(row, :))};
text = sprintf('capeOpenMultiFlash(handle, X, ''%s'', a, ''%s'', b, ''Unspecified'', ''%s'')', names{[1, 2, 1]});
kinds = answered(kinds, sprintf('flash %s %s', names{:}), size(Z, 1), ask, setting, text, 'a');
end

% What fails is found elsewhere, and has no time.
function kinds = answered(kinds, kind, states, ask, setting, call, rowed)
if states == 0 || ~succeeds(@() ask(1))
    return
end
if states > 1 && ~succeeds(@() ask([1; 2]))
    rowed = ''; % a property of pairs of compounds, of which there is one state in a call
end
kinds(end + 1) = struct('kind', kind, 'states', states, 'ask', ask, 'setting', setting, 'call', call, 'rowed', rowed);
end

function yes = succeeds(call)
yes = true;
try
    call();
catch
    yes = false;
end
end
