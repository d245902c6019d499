function text = unusableNumber(call, k)
%unusableNumber  The first number of argument K that no package can calculate with, in words; '' if there is none.
text = '';
x = call.given{k};
if ~isa(x, 'double')
    return
end
switch call.labels{k}
    case 'T'
        what = 'temperature';
    case 'P'
        what = 'pressure';
    case {'Z', 'X', 'X1', 'X2'}
        what = 'composition';
    otherwise % value1 stands behind name1
        what = lower(call.given{k - 1});
end
wrong = ~isfinite(x);
if any(strcmp(what, {'temperature', 'pressure'}))
    wrong = wrong | x <= 0;
elseif strcmp(what, 'composition')
    wrong = wrong | x < 0;
end
[row, column] = find(wrong, 1);
if strcmp(what, 'composition')
    empty = find(all(x == 0, 2), 1);
    if ~isempty(row)
        names = capeOpenCompoundList(call.given{1});
        if size(x, 2) ~= numel(names)
            column = row; % a flash takes a column, too
        end
        text = sprintf('%s of %s%s is %g', call.labels{k}, names{column}, inRow(row, x), x(find(wrong, 1)));
    elseif ~isempty(empty)
        text = sprintf('%s%s is zero for all compounds', call.labels{k}, inRow(empty, x));
    end
elseif ~isempty(row)
    text = sprintf('The %s%s is %g', what, inRow(row, x), x(row));
end
end

function text = inRow(row, x)
text = '';
if size(x, 1) > 1
    text = sprintf(' in row %d', row);
end
end
