function compounds = compoundsToMove(x)
%compoundsToMove  Of the largest, a middle and the smallest fraction, and one of nothing; of a pure one others.
[~, order] = sort(-x);
some = order(x(order) > 0);
none = order(x(order) == 0);
compounds = unique([some(1), some(end), some(ceil(end / 2)), none(1:min(1, end))]).';
compounds(x(compounds) == 1) = [];
end
