function tally = checkDifferences(s, tally, at, property, variable, given, expression)
%checkDifferences  Compares an expression with the derivative of a property by T or P, from differences.
%
%   tally = checkDifferences(s, tally, at, property, variable, given, expression)
%
%   GIVEN are the names of what stands in EXPRESSION, with '_' in place of a dot; T, P, X and R may stand there,
%   too. The function extrapolated gives the limit. A phase that ends or jumps within the step is no finding.
count = numel(at.T);
if count == 0
    return
end
[move, relative] = deal([1, 0], 3e-4);
if variable == 'P'
    [move, relative] = deal([0, 1], 1e-3);
end
[steps, weights] = differenceSteps();
offsets = kron(steps.', ones(count, 1)) * relative;
many = @(x) repmat(x, numel(steps), 1);
f = phaseValues(s, property, many(at.T) .* (1 + move(1) * offsets), many(at.P) .* (1 + move(2) * offsets), ...
    many(at.X), at.phase);
f0 = phaseValues(s, property, at.T, at.P, at.X, at.phase);
values = cellfun(@(name) phaseValues(s, name, at.T, at.P, at.X, at.phase), given, 'UniformOutput', false);
if isempty(f) || isempty(f0) || any(cellfun(@isempty, values)) || any(cellfun('size', values, 1) ~= count)
    return % what can not be calculated is found elsewhere
end
names = strrep(given, '.', '_');
[T, P, X] = deal(at.T, at.P, at.X);
value = evaluated(expression, names, values, T, P, X, s.R);
h = relative * (T * move(1) + P * move(2));
d = cell(1, 3);
for k = 1:3
    d{k} = bsxfun(@rdivide, kron(weights(k, :), speye(count)) * f, h);
end
extra = evaluated(excessScale(property), {}, {}, T, P, X, s.R);
[derivative, limit] = extrapolated(d{:}, bsxfun(@plus, abs(f0), extra), repmat(h, 1, size(f0, 2)));
limit(~isfinite(f0)) = NaN; % such as the logarithm of nothing
deviation = value - derivative;
what = sprintf('%s: d(%s)/d%s is not %s', at.phase, property, variable, relationText(expression));
tally = checkCompared(tally, 'failure', what, deviation, limit, at, @(row) linesOf(s, at, row, property, variable, ...
    given, names, expression, relative));
end

function lines = linesOf(s, at, row, property, variable, given, names, expression, relative)
ask = @(name, state) sprintf('capeOpenSinglePhaseProp(handle, ''%s'', %s, X, ''%s'')', name, state, at.phase);
f = sprintf('f = @(step) %s;', ask(property, strrep('T, P', variable, [variable, ' + step'])));
set = cellfun(@(name, variable) sprintf('%s = %s;', variable, ask(name, 'T, P')), given(:), names(:), ...
    'UniformOutput', false);
lines = [stateLines(s, at.T(row), at.P(row), at.X(row, :)); {f}
         {sprintf('R = %.17g; h = %g * %s;', s.R, relative, variable)}; set
         {'d2 = (f(h / 2) - f(-h / 2)) / h;'; 'd3 = (f(h / 4) - f(-h / 4)) / (h / 2);'}
         extrapolatedLines(expression, ['abs(f(0)) + ', excessScale(property)])];
end
