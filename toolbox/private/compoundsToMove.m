function compounds = compoundsToMove(x)
%compoundsToMove  Those of the largest, the smallest and a middle fraction, and one of nothing; of a pure compound others.
[~, order] = sort(-x);
some = order(x(order) > 0);
none = order(x(order) == 0);
compounds = unique([some(1), some(end), some(ceil(end / 2)), none(1:min(1, end))]).';
compounds(x(compounds) == 1) = [];
end
