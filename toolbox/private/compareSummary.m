function compareSummary(result)
%compareSummary  Shows a comparison in the command window: the largest difference of each property and phase.
%
%   That derivatives of what differs do so, too, is only said.
[rows, kinds, derived] = shown(result.rows);
[~, first] = unique(kinds, 'first');
first = reshape(sort(first), 1, []);
fprintf('%s against %s: ', result.packages{:});
if isempty(rows)
    fprintf('no differences');
else
    fprintf('differences of %d %s', numel(first), plural(numel(first), 'kind'));
end
fprintf(' in %d %s of %d %s, %.1f s (%s, seed %g, beyond %g)\n', result.asked, plural(result.asked, 'value'), ...
        numel(result.compounds), plural(numel(result.compounds), 'compound'), result.seconds, result.options.Level, ...
        result.options.Seed, result.options.Tolerance);
for k = 1:2
    names = [result.compoundsOfOne{k}(:); result.propertiesOfOne{k}(:); result.phasesOfOne{k}(:)];
    if ~isempty(names)
        fprintf('  only in %s: %s\n', result.packages{k}, shortened(names));
    end
end
for k = first(1:min(20, end))
    row = rows(k);
    fprintf('  %-10.3g %s\n', row.size, strtrim(sprintf('%s %s', row.phase, row.property)));
    fprintf('             %s against %s', row.values{:});
    if ~isempty(row.compound)
        fprintf(', of %s', row.compound);
    end
    if ~isempty(row.where)
        fprintf(' at %s', row.where);
    end
    same = rows(strcmp(kinds, kinds{k}));
    fprintf('\n             %d of %d values%s\n', sum([same.count]), sum([same.asked]), ...
            [ranges('K', [same.T]), ranges('Pa', [same.P])]);
end
if numel(first) > 20
    fprintf('  %d more in the rows of the result\n', numel(first) - 20);
end
if derived
    fprintf('  and of derivatives of these\n');
end
end

% Rows of derivatives are left out, unless the property itself is the same. KINDS has property and phase of each.
function [rows, kinds, derived] = shown(rows)
kinds = cell(1, 0);
derived = false;
if isempty(rows)
    return
end
kinds = strcat({rows.property}, {' '}, {rows.phase});
own = strcat(strtok({rows.property}, '.'), {' '}, {rows.phase});
keep = strcmp(kinds, own) | ~ismember(own, kinds);
derived = ~all(keep);
[rows, kinds] = deal(rows(keep), kinds(keep));
end

function text = ranges(unit, values)
text = '';
if ~isempty(values)
    text = sprintf(', %.4g to %.4g %s', min(values), max(values), unit);
end
end

function text = shortened(names)
text = strjoin(reshape(names(1:min(8, end)), 1, []), ', ');
if numel(names) > 8
    text = sprintf('%s, and %d more', text, numel(names) - 8);
end
end
