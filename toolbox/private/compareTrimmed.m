function saved = compareTrimmed(saved, keep)
%compareTrimmed  Saved values of the compounds KEEP (numbers) alone, at the states that have no other.
n = numel(saved.compounds);
others = true(1, n);
others(keep) = false;
saved.compounds = saved.compounds(keep);
saved.cas = saved.cas(keep);
for k = 1:numel(saved.series)
    series = saved.series(k);
    if isempty(series.X)
        if ~isempty(series.T)
            series.T = series.T(:, keep);
        end
        if ~isempty(series.P)
            series.P = series.P(:, keep);
        end
        rows = 1:size(series.values, 1);
    else
        rows = all(series.X(:, others) == 0, 2);
        [series.T, series.P, series.X] = deal(series.T(rows), series.P(rows), series.X(rows, keep));
    end
    columns = 1:size(series.values, 2);
    if numel(columns) == n * n && n > 1
        [first, second] = ndgrid(keep, keep);
        columns = sub2ind([n, n], first(:), second(:));
    elseif numel(columns) == n
        columns = keep;
    end
    series.values = series.values(rows, columns);
    saved.series(k) = series;
end
saved.series = saved.series(cellfun('size', {saved.series.values}, 1) > 0);
end
