function tally = checkBatches(s, tally)
%checkBatches  A value is the same alone, among others of its state, and among other states in any order.
%
%   Fractions are asked for with a sum of 1, and there is no amount that could be larger: what else comes with a state is
%   all that could count besides. To 1e-9, as what is asked again: an iteration may begin elsewhere.
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
    what = [at.phase, ': properties that have values one by one fail together: ', strtok(problem.message, sprintf('\n'))];
    tally = checkFound(tally, 'failure', what, stateText(at, 1), [stateLines(s, at.T, at.P, at.X)
        {sprintf('capeOpenSinglePhaseProp(handle, {%s}, T, P, X, ''%s'')', strjoin(strcat('''', names, ''''), ', '), ...
                 at.phase)}]);
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
sizes = {@(a, T, P) ones(size(a)), @(a, T, P) abs(a), @(a, T, P) abs(a) + s.R * T};
[together, alone] = deal(cell(1, numel(names)));
order = count:-1:1;
try
    [together{:}] = capeOpenMultiFlash(s.handle, at.X(order, :), 'Temperature', at.T(order), 'Pressure', at.P(order), ...
                                       'Unspecified', names);
    for row = 1:count
        [one{1:numel(names)}] = capeOpenMultiFlash(s.handle, at.X(row, :), 'Temperature', at.T(row), 'Pressure', ...
                                                   at.P(row), 'Unspecified', names);
        alone = cellfun(@(a, v) [a; v], alone, one, 'UniformOutput', false);
    end
catch problem
    tally = checkFound(tally, 'failure', ['A batch of flashes fails: ', strtok(problem.message, sprintf('\n'))], ...
                       stateText(at, 1), flashLines(s, s.flashes(some(1))));
    return
end
for k = 1:numel(names)
    a = alone{k};
    size1 = sizes{strcmp({'vaporFraction', 'volume', 'enthalpy'}, names{k})}(a, at.T, at.P);
    limit = 1e-9 * size1;
    limit(isnan(a)) = NaN;
    head = [stateLines(s, at.T, at.P, at.X)
            {'order = numel(T):-1:1;'
             sprintf(['v = capeOpenMultiFlash(handle, X(order, :), ''Temperature'', T(order), ''Pressure'', P(order), ', ...
                      '''Unspecified'', ''%s'');'], names{k})}];
    lines = @(row) [head; {sprintf(['a = capeOpenMultiFlash(handle, X(%d, :), ''Temperature'', T(%d), ''Pressure'', ', ...
                                    'P(%d), ''Unspecified'', ''%s'');'], row, row, row, names{k})
                           sprintf('deviation = abs(v(order(%d)) - a)', row); sprintf('limit = %.17g', limit(row))}];
    tally = checkCompared(tally, 'failure', sprintf('%s of a flash depends on those before it', names{k}), ...
                          together{k}(order) - a, limit, at, lines);
end
end
