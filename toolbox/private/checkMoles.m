function tally = checkMoles(s, tally, suffix)
%checkMoles  Each listed derivative by moles or mole fractions against differences along the composition.
%
%   One compound j is added to a mole of the mixture: the fractions move by e_j - X. Of an extensive property the
%   derivative by moles is that of the whole, f + df; mole fractions are independent, and only such directions
%   count. The step is a thousandth of the fraction, or from one side where there is nothing of the compound; the
%   function extrapolated gives the limit. Where there is nothing of it, an infinite derivative is right for what
%   mixes.
for name = reshape(s.single, 1, [])
    base = name{1}(1:max(0, end - numel(suffix)));
    if isempty(base) || ~strcmpi(name{1}, [base, suffix]) || strcmpi(base, 'diffusionCoefficient')
        continue
    end
    whole = strcmpi(suffix, '.Dmoles') && isExtensive(base);
    for at = s.states
        some = evenly(numel(at.T), 12 - 10 * s.quick);
        [deviation, limit, compound] = deal(zeros(0, 1));
        rows = compound;
        for row = some
            [d, l, j] = compared(s, at, row, name{1}, base, suffix, whole);
            [deviation, limit, compound] = deal([deviation; d], [limit; l], [compound; j]);
            rows = [rows; row + zeros(size(j))]; %#ok<AGROW>
        end
        if isempty(rows)
            continue
        end
        which = statesOf(s, at.phase, at.T(rows), at.P(rows), at.X(rows, :));
        lines = @(k) linesOf(s, at, rows(k), compound(k), name{1}, base, suffix, whole);
        what = sprintf('%s: %s is not that of %s by differences', at.phase, name{1}, base);
        tally = checkCompared(tally, 'failure', what, deviation, limit, which, lines);
    end
end
end

function answer = isExtensive(name)
answer = any(strcmpi(name, {'volume', 'enthalpy', 'enthalpyF', 'enthalpyNF', 'entropy', 'entropyF', 'entropyNF', ...
    'gibbsEnergy', 'helmholtzEnergy', 'internalEnergy', 'heatCapacityCp', 'heatCapacityCv', 'excessEnthalpy', ...
    'excessEntropy', 'excessGibbsEnergy', 'excessHelmholtzEnergy', 'excessInternalEnergy', 'excessVolume'}));
end

% In a row for each compound, the largest deviation as a part of its limit among what depends on it, and that limit.
function [deviation, limit, compounds] = compared(s, at, row, name, base, suffix, whole)
[T, P, x] = deal(at.T(row), at.P(row), at.X(row, :));
compounds = compoundsToMove(x);
[deviation, limit] = deal(NaN(numel(compounds), 1));
given = phaseValues(s, name, T, P, x, at.phase);
f0 = phaseValues(s, base, T, P, x, at.phase);
if size(f0, 2) == 1 && ~isempty(given)
    given = reshape(given, 1, []);
end
if isempty(f0) || ~isequal(size(given), [numel(f0), s.n])
    return
end
some = x > 0;
for k = 1:numel(compounds)
    j = compounds(k);
    h = fractionStep(x(j));
    [steps, weights] = differenceSteps(x(j) == 0);
    f = phaseValues(s, base, T, P, movedFractions(x, j, h * steps), at.phase);
    if numel(f) ~= numel(steps) * numel(f0)
        continue
    end
    value = given(:, j).';
    if strcmpi(suffix, '.DmolFraction')
        value = value - (given(:, some) * x(some).').';
    elseif whole
        value = value - f0;
    end
    d = num2cell(weights * f / h, 2);
    [derivative, l] = extrapolated(d{:}, abs(f0) + evaluated(excessScale(base), {}, {}, T, P, x, s.R), h);
    l(~isfinite(f0) | (x(j) == 0 & ~isfinite(value))) = NaN;
    d = abs(value - derivative);
    d(isnan(d) & isfinite(l)) = Inf;
    if any(isfinite(l))
        [~, worst] = max(d ./ l);
        [deviation(k), limit(k)] = deal(d(worst), l(worst));
    end
end
end

function lines = linesOf(s, at, row, j, name, base, suffix, whole)
[steps, weights] = differenceSteps(at.X(row, j) == 0);
ask = @(name, X) sprintf('capeOpenSinglePhaseProp(handle, ''%s'', T, P, %s, ''%s'')', name, X, at.phase);
value = 'given(:, j).''';
if strcmpi(suffix, '.DmolFraction')
    value = [value, ' - (given(:, X > 0) * X(X > 0).'').'''];
elseif whole
    value = [value, ' - f0'];
end
lines = [stateLines(s, at.T(row), at.P(row), at.X(row, :))
         {sprintf('R = %.17g; j = %d; h = %.17g;', s.R, j, fractionStep(at.X(row, j)))
          [numbersText('steps', steps), sprintf(' X2 = repmat(X, %d, 1) - h * steps.'' * X;', numel(steps))]
          'X2(:, j) = X2(:, j) + h * steps.'';'
          sprintf('f = %s; f0 = %s;', ask(base, 'X2'), ask(base, 'X')); sprintf('given = %s;', ask(name, 'X'))
          'if numel(f0) == 1, given = reshape(given, 1, []); end'
          [numbersText('d2', weights(2, :)), ' d2 = d2 * f / h;']
          [numbersText('d3', weights(3, :)), ' d3 = d3 * f / h;']}
         extrapolatedLines(value, ['abs(f0) + ', excessScale(base)])];
end
