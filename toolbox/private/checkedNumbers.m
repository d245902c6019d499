function values = checkedNumbers(values, allowed, words)
%checkedNumbers  Numbers for a diagram as full doubles; ALLOWED tells which they may be, WORDS is the error for others.
if isempty(values)
    values = [];
elseif ~isnumeric(values) || ~isreal(values) || ~all(allowed(values(:)))
    error('Verdanth:error', '%s', words);
end
values = full(double(values)); % numbers of other classes would be calculated with in theirs
end
