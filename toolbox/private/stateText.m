function text = stateText(at, row)
%stateText  One of the states of a check in words: phase, temperature, pressure, and the larger fractions.
text = sprintf('%.6g K, %.6g Pa', at.T(min(row, end)), at.P(min(row, end)));
if ~isempty(at.phase)
    text = sprintf('%s, %s', at.phase, text);
end
if ~isempty(at.X)
    X = at.X(min(row, end), :);
    [~, order] = sort(-X);
    order = order(X(order) > 0);
    some = order(1:min(3, end));
    parts = arrayfun(@(k) sprintf('%s %.4g', at.compounds{k}, X(k)), some, 'UniformOutput', false);
    if numel(order) > numel(some)
        parts{end + 1} = '...';
    end
    text = sprintf('%s, %s', text, strjoin(parts, ', '));
end
end
