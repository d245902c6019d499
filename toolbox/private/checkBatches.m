function tally = checkBatches(s, tally)
%checkBatches  A value is the same alone, among others of its state, and among other states in any order.
%
%   Fractions are asked for with a sum of 1, and there is no amount that could be larger: what else comes with a state
%   is all that could count besides. To 1e-9, as what is asked again: an iteration may begin elsewhere.
for at = s.states
    some = evenly(numel(at.T), 40 - 34 * s.quick);
    if ~isempty(some)
        rows = statesOf(s, at.phase, at.T(some), at.P(some), at.X(some, :));
        tally = properties(s, tally, rows);
    end
end
tally = flashes(s, tally);
end

function tally = properties(s, tally, at)
[separate, names] = eachAlone(s, at);
if isempty(names)
    return
end
count = numel(at.T);
order = count:-1:1;
[together, single] = deal(cell(1, numel(names)));
try
    [together{:}] = capeOpenSinglePhaseProp(s.handle, names, at.T(order), at.P(order), at.X(order, :), at.phase);
    [single{:}] = capeOpenSinglePhaseProp(s.handle, names, at.T(1), at.P(1), at.X(1, :), at.phase);
catch problem
    what = [at.phase, ': properties that have values one by one fail together: ', problem.message];
    lines = [stateLines(s, at.T, at.P, at.X); {sprintf('names = {%s};', strjoin(strcat('''', names, ''''), ', '))
             sprintf('[v{1:%d}] = capeOpenSinglePhaseProp(handle, names, T, P, X, ''%s'');', numel(names), at.phase)}];
    tally = checkFound(tally, 'failure', strtok(what, sprintf('\n')), stateText(at, 1), lines);
    return
end
within = false(1, numel(names));
[deviations, limits] = deal(cell(1, numel(names)));
for k = 1:numel(names)
    a = separate{k};
    scale = evaluated(excessScale(names{k}), {}, {}, at.T, at.P, at.X, s.R);
    d = [together{k}(order, :) - a; single{k} - a(1, :)];
    l = 1e-9 * repmat(max(abs(a), [], 2) + scale, 1, size(a, 2));
    l(~isfinite(a)) = NaN; % as the logarithm of nothing
    [deviations{k}, limits{k}] = deal(d, [l; l(1, :)]);
    within(k) = all(abs(d(:)) <= limits{k}(:) | isnan(limits{k}(:)));
end
at = statesOf(s, at.phase, at.T([1:end, 1]), at.P([1:end, 1]), at.X([1:end, 1], :));
tally = checkCompared(tally, 'failure', [at.phase, ': values depend on what else is asked for'], ...
                      [zeros(count + 1, 1), deviations{within}], [ones(count + 1, 1), limits{within}], at, []);
for k = find(~within)
    what = sprintf('%s: %s depends on what else is asked for', at.phase, names{k});
    tally = checkCompared(tally, 'failure', what, deviations{k}, limits{k}, at, ...
                          @(row) linesOf(s, at, names, k));
end
end

% The properties that have values in all rows, and these, each asked for by itself. Matrices have no rows.
function [values, names] = eachAlone(s, at)
names = reshape(s.single, 1, []);
names = names(cellfun(@isempty, regexpi(names, '^(diffusionCoefficient|(activity|fugacity|log).*\.Dmol)', 'once')));
values = cellfun(@(name) phaseValues(s, name, at.T, at.P, at.X, at.phase), names, 'UniformOutput', false);
whole = cellfun(@(v) size(v, 1) == numel(at.T) && ~any(all(isnan(v), 2)), values);
[values, names] = deal(values(whole), names(whole));
end

function lines = linesOf(s, at, names, k)
rows = numel(at.T) - 1;
lines = [stateLines(s, at.T(1:rows), at.P(1:rows), at.X(1:rows, :))
         {sprintf('names = {%s};', strjoin(strcat('''', names, ''''), ', ')); sprintf('R = %.17g;', s.R)
          sprintf('k = %d; order = %d:-1:1; [v, w] = deal(cell(1, numel(names)));', k, rows)
          sprintf('a = capeOpenSinglePhaseProp(handle, names{k}, T, P, X, ''%s'');', at.phase)
          sprintf(['[v{:}] = capeOpenSinglePhaseProp(handle, names, T(order), P(order), X(order, :), ''%s'');', ...
                   ' b = v{k}(order, :);'], at.phase)
          sprintf('[w{:}] = capeOpenSinglePhaseProp(handle, names, T(1), P(1), X(1, :), ''%s'');', at.phase)
          'deviation = abs([b; w{k}] - a([1:end, 1], :))'
          sprintf('limit = 1e-9 * repmat(max(abs(a), [], 2) + %s, 1, size(a, 2));', excessScale(names{k}))
          'limit = limit([1:end, 1], :)'}];
end

% A row of a batch of flashes, in the order of the sample and the other way round, against a flash by itself.
function tally = flashes(s, tally)
some = wholeFlashes(s, s.flashes);
some = some(evenly(numel(some), 40 - 30 * s.quick));
names = {'vaporFraction', 'volume', 'enthalpy'};
names = names(ismember(lower(names), lower(s.flashProps)));
if isempty(some) || isempty(names)
    return
end
at = flashStates(s, s.flashes(some));
count = numel(some);
sizes = struct('vaporFraction', @(a, T) ones(size(a)), 'volume', @(a, T) abs(a), 'enthalpy', @(a, T) abs(a) + s.R * T);
[together, alone] = deal(cell(1, numel(names)));
order = count:-1:1;
try
    ask = @(rows) capeOpenMultiFlash(s.handle, at.X(rows, :), 'Temperature', at.T(rows), 'Pressure', at.P(rows), ...
                                     'Unspecified', names);
    [together{:}] = ask(order);
    for row = 1:count
        [one{1:numel(names)}] = ask(row);
        alone = cellfun(@(a, v) [a; v], alone, one, 'UniformOutput', false);
    end
catch problem
    tally = checkFound(tally, 'failure', ['A batch of flashes fails: ', strtok(problem.message, sprintf('\n'))], ...
                       stateText(at, 1), flashLines(s, s.flashes(some(1))));
    return
end
for k = 1:numel(names)
    a = alone{k};
    limit = 1e-9 * sizes.(names{k})(a, at.T);
    limit(isnan(a)) = NaN;
    lines = @(row) [stateLines(s, at.T, at.P, at.X)
                    {'ask = @(k, name) capeOpenMultiFlash(handle, X(k, :), ''Temperature'', T(k), ...'
                     '    ''Pressure'', P(k), ''Unspecified'', name);'
                     sprintf('k = %d; order = numel(T):-1:1; v = ask(order, ''%s'');', row, names{k})
                     sprintf('deviation = abs(v(order(k)) - ask(k, ''%s''))', names{k})
                     sprintf('limit = %.17g', limit(row))}];
    tally = checkCompared(tally, 'failure', sprintf('%s of a flash depends on those before it', names{k}), ...
                          together{k}(order) - a, limit, at, lines);
end
end
