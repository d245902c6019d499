function near = nearNames(word, names)
%nearNames  Those of NAMES that may have been meant by WORD, at most three, the likeliest first.
%
%   A few letters may be wrong, missing or too many, or the word is a part of the name.
word = lower(word);
count = numel(names);
distance = Inf(1, count);
allowed = max(1, min(3, floor(numel(word) / 3)));
for k = 1:count
    name = lower(names{k});
    if abs(numel(name) - numel(word)) <= allowed % else it is farther in any case
        distance(k) = editDistance(word, name, allowed);
    end
    if distance(k) > allowed
        distance(k) = Inf;
        if numel(word) > 3 && ~isempty(strfind(name, word)) %#ok<STREMP>
            distance(k) = 3 + numel(name) - numel(word);
        end
    end
end
[distance, order] = sort(distance);
near = names(order(isfinite(distance)));
near = near(1:min(end, 3));
near = near(:).';
end

% How many letters have to be put in, taken out, changed or swapped with the next (Damerau, Levenshtein); Inf if they are
% more than ALLOWED, which the first letters tell of most names.
function distance = editDistance(a, b, allowed)
D = zeros(numel(a) + 1, numel(b) + 1);
D(:, 1) = 0:numel(a);
D(1, :) = 0:numel(b);
for i = 1:numel(a)
    for j = 1:numel(b)
        D(i + 1, j + 1) = min([D(i, j + 1) + 1, D(i + 1, j) + 1, D(i, j) + (a(i) ~= b(j))]);
        if i > 1 && j > 1 && a(i) == b(j - 1) && a(i - 1) == b(j)
            D(i + 1, j + 1) = min(D(i + 1, j + 1), D(i - 1, j - 1) + 1);
        end
    end
    if min(min(D(i:i + 1, :))) > allowed % a swap of two letters reaches over one row
        distance = Inf;
        return
    end
end
distance = D(end, end);
end
