function tally = checkTwoPhase(s, tally)
%checkTwoPhase  Properties of pairs of phases at the equilibria of the sample.
%
%   They are there, a number or one for each compound; K-values are those of the fugacity coefficients, to 1e-9 of their
%   size as in checkIdentities; and derivatives are those of differences, to the limit of the function extrapolated. By
%   moles and mole fractions there is one for the composition of each phase, the other of which stays.
pairs = wholeFlashes(s, s.flashes);
pairs = pairs(cellfun(@numel, {s.flashes(pairs).phases}) > 1);
pairs = pairs(evenly(numel(pairs), 40 - 32 * s.quick));
few = pairs(evenly(numel(pairs), 10 - 8 * s.quick));
for k = pairs
    flash = s.flashes(k);
    two = flash.phases(1:2);
    X = flash.X(1:2, :);
    at = statesOf(s, [two{1}, ' and ', two{2}], flash.T, flash.P, flash.Z);
    head = [stateLines(s, flash.T, flash.P, X(1, :)); {numbersText('X2', X(2, :))}];
    pairValue = @(name, T, P, X, X2) capeOpenTwoPhaseProp(s.handle, name, T, P, X, X2, two{1}, two{2});
    ask = @(name, T, P) pairValue(name, T, P, X(1, :), X(2, :));
    call = @(name, T, P) sprintf('capeOpenTwoPhaseProp(handle, ''%s'', %s, %s, X, X2, ''%s'', ''%s'')', name, T, P, ...
        two{:});
    for name = reshape(s.two, 1, [])
        tally.asked = tally.asked + 1;
        try
            value = ask(name{1}, flash.T, flash.P);
        catch problem
            tally = checkFound(tally, 'failure', sprintf('%s is listed, but fails: %s', name{1}, ...
                               strtok(problem.message, sprintf('\n'))), stateText(at, 1), ...
                               [head; {['value = ', call(name{1}, 'T', 'P')]}], at.T, at.P, 1);
            continue
        end
        derivative = regexpi(name{1}, '^(\w+)\.D(temperature|pressure)$', 'tokens', 'once');
        composed = regexpi(name{1}, '^(\w+)(\.Dmol\w+)$', 'tokens', 'once');
        if ~isempty(composed)
            if any(k == few)
                tally = byComposition(tally, at, name{1}, composed, value, pairValue, X, two, head);
            end
        elseif ~any(numel(value) == [1, s.n])
            lines = [head; {['value = ', call(name{1}, 'T', 'P')]; 'numbers = numel(value)'}];
            tally = checkFound(tally, 'failure', sprintf('%s has %d values', name{1}, numel(value)), ...
                               stateText(at, 1), lines, at.T, at.P, 1);
        elseif isnumeric(value) && any(~isfinite(value(:))) && (isscalar(value) || all(flash.Z > 0))
            tally = checkFound(tally, 'failure', sprintf('%s is no number', name{1}), stateText(at, 1), ...
                               [head; {['value = ', call(name{1}, 'T', 'P')]}], at.T, at.P, 1);
        elseif ~isempty(derivative)
            tally = differences(tally, at, name{1}, derivative, value, ask, call, head);
        end
    end
    if any(strcmpi(s.two, 'kvalue')) && any(strcmpi(s.single, 'logFugacityCoefficient'))
        tally = kvalues(s, tally, at, two, X, ask, call, head);
    end
end
tally = mergedFindings(tally);
end

function tally = differences(tally, at, name, derivative, value, ask, call, head)
[steps, weights] = differenceSteps();
byT = strcmpi(derivative{2}, 'temperature');
h = 3e-4 * at.T * byT + 1e-3 * at.P * ~byT;
try
    f0 = ask(derivative{1}, at.T, at.P);
    f = ask(derivative{1}, at.T + byT * h * steps.', at.P + ~byT * h * steps.');
catch
    return % where a phase ends
end
if ~isequal(size(value), size(f0)) || size(f, 2) ~= size(f0, 2)
    return % told of the property itself
end
d = num2cell(weights * f / h, 2);
[expected, limit] = extrapolated(d{:}, abs(f0) + strncmpi(name, 'log', 3), h);
limit(~isfinite(f0)) = NaN;
moved = {'T', 'P + h * s'};
if byT
    moved = {'T + h * s', 'P'};
end
lines = [head; {sprintf('h = %.17g; s = [0.5; -0.5; 0.25; -0.25; 0];', h)
                sprintf('f = %s;', call(derivative{1}, moved{:})); sprintf('given = %s;', call(name, 'T', 'P'))
                'd2 = (f(1, :) - f(2, :)) / h; d3 = (f(3, :) - f(4, :)) / (h / 2);'}
         extrapolatedLines('given', sprintf('abs(f(5, :)) + %d', strncmpi(name, 'log', 3)))];
tally = checkCompared(tally, 'failure', sprintf('%s is not that of %s by differences', name, derivative{1}), ...
                      value - expected, limit, at, @(row) lines);
end

% One of the phases gets a little more of a compound, see movedFractions.
function tally = byComposition(tally, at, name, parts, value, ask, X, two, head)
whole = iscell(value) && numel(value) == 2;
try
    f0 = ask(parts{1}, at.T, at.P, X(1, :), X(2, :));
catch
    return % told of the property itself
end
for phase = 1:2
    call = @(name, X1, X2) sprintf('capeOpenTwoPhaseProp(handle, ''%s'', T, P, %s, %s, ''%s'', ''%s'')', name, X1, ...
        X2, two{:});
    lines = [head; {['given = ', call(name, 'X', 'X2'), ';']}];
    if ~whole || numel(value{phase}) ~= numel(f0) * size(X, 2)
        tally = checkFound(tally, 'failure', sprintf('%s has not a value for each compound of both phases', name), ...
                           stateText(at, 1), [lines; {'numbers = cellfun(@numel, given)'}], at.T, at.P, 1);
        return
    end
    given = reshape(value{phase}, numel(f0), []);
    x = X(phase, :);
    some = x > 0;
    for j = compoundsToMove(x).'
        [steps, weights] = differenceSteps(x(j) == 0);
        h = fractionStep(x(j));
        rows = {X(1, :), X(2, :)};
        rows{phase} = movedFractions(x, j, h * steps);
        try
            f = ask(parts{1}, at.T, at.P, rows{:});
        catch
            continue % where a phase ends
        end
        d = num2cell(weights * f / h, 2);
        [expected, limit] = extrapolated(d{:}, abs(f0) + strncmpi(name, 'log', 3), h);
        found = given(:, j).';
        text = 'given(:, j).''';
        if strcmpi(parts{2}, '.DmolFraction') % independent fractions: along the step alone there is a difference
            found = found - (given(:, some) * x(some).').';
            text = 'given(:, j).'' - (given(:, x > 0) * x(x > 0).'').''';
        end
        limit(~isfinite(f0) | (x(j) == 0 & ~isfinite(found))) = NaN; % an infinite one is right where there is nothing
        moved = {'X', 'X2'};
        moved{phase} = 'rows';
        own = {'X', 'X2'};
        more = [lines; {sprintf('x = %s; j = %d; h = %.17g;', own{phase}, j, h)
                        [numbersText('steps', steps), ' rows = repmat(x, numel(steps), 1) - h * steps.'' * x;']
                        'rows(:, j) = rows(:, j) + h * steps.'';'
                        sprintf('f = %s; f0 = %s;', call(parts{1}, moved{:}), call(parts{1}, 'X', 'X2'))
                        sprintf('given = reshape(given{%d}, numel(f0), []);', phase)
                        [numbersText('d2', weights(2, :)), ' d2 = d2 * f / h;']
                        [numbersText('d3', weights(3, :)), ' d3 = d3 * f / h;']}
                extrapolatedLines(text, sprintf('abs(f0) + %d', strncmpi(name, 'log', 3)))];
        what = sprintf('%s is not that of %s by differences', name, parts{1});
        tally = checkCompared(tally, 'failure', what, found - expected, limit, at, @(row) more);
    end
end
end

function tally = kvalues(s, tally, at, two, X, ask, call, head)
a = phaseValues(s, 'logFugacityCoefficient', at.T, at.P, X(1, :), two{1});
b = phaseValues(s, 'logFugacityCoefficient', at.T, at.P, X(2, :), two{2});
try
    K = ask('kvalue', at.T, at.P);
catch
    return % told above
end
if ~isequal(size(a), size(b), size(K))
    return
end
lines = [head; {sprintf('K = %s;', call('kvalue', 'T', 'P'))
                sprintf('a = capeOpenSinglePhaseProp(handle, ''logFugacityCoefficient'', T, P, X, ''%s'');', two{1})
                sprintf('b = capeOpenSinglePhaseProp(handle, ''logFugacityCoefficient'', T, P, X2, ''%s'');', two{2})
                'deviation = abs(log(K) - b + a)'; 'limit = 1e-9 * (1 + abs(a) + abs(b))'}];
tally = checkCompared(tally, 'failure', 'kvalue is not the quotient of the fugacity coefficients', ...
                      log(K) - b + a, 1e-9 * (1 + abs(a) + abs(b)), at, @(row) lines);
end
