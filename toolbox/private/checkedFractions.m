function fractions = checkedFractions(fractions)
%checkedFractions  The vapor fractions of a diagram's quality lines.
fractions = checkedNumbers(fractions, @(v) v >= 0 & v <= 1, 'Expected vapor fractions from 0 to 1');
end
