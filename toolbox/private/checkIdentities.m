function tally = checkIdentities(s, tally, table)
%checkIdentities  Relations between the values of one state, which hold to rounding.
%
%   Rows of TABLE: names of properties, an expression that is zero, and the size of its terms. Both sides come from
%   the same equations in double precision: the limit is 1e-9 of the terms, which is 4e6 roundings, and more than an
%   iterated density needs.
for k = 1:size(table, 1)
    [names, zero, terms] = table{k, 1:3};
    if ~all(ismember(lower(names), lower(s.single)))
        continue
    end
    variables = strrep(names, '.', '_');
    for at = s.states
        values = cellfun(@(name) phaseValues(s, name, at.T, at.P, at.X, at.phase), names, 'UniformOutput', false);
        if isempty(at.T) || any(cellfun('size', values, 1) ~= numel(at.T))
            continue
        end
        M = at.X * s.molar.';
        ask = @(text) evaluated(text, [variables, {'M'}], [values, {M}], at.T, at.P, at.X, s.R);
        deviation = ask(zero);
        limit = 1e-9 * ask(terms);
        none = at.X == 0 & size(deviation, 2) > 1;
        limit(none(:, 1:size(limit, 2))) = NaN;
        limit(any(~isfinite([values{cellfun('size', values, 2) == 1}]), 2), :) = NaN; % found elsewhere
        lines = @(row) [stateLines(s, at.T(row), at.P(row), at.X(row, :))
                        {sprintf('M = X * capeOpenConstant(handle, ''molecularWeight'').'' / 1000; R = %.17g;', s.R)
                         sprintf('[%s] = capeOpenSinglePhaseProp(handle, {%s}, T, P, X, ''%s'');', ...
                                 strjoin(variables, ', '), strjoin(strcat('''', names, ''''), ', '), at.phase)
                         sprintf('deviation = abs(%s)', zero); sprintf('limit = 1e-9 * (%s)', terms)}];
        what = sprintf('%s: %s is not zero', at.phase, relationText(zero));
        tally = checkCompared(tally, 'failure', what, deviation, limit, at, lines);
    end
end
end
