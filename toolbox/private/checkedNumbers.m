function values = checkedNumbers(values, allowed, words)
%checkedNumbers  What a diagram is to hold, as doubles; ALLOWED tells which values are, WORDS is the error for others.
if isempty(values)
    values = [];
elseif ~isnumeric(values) || ~isreal(values) || ~all(allowed(values(:)))
    error('Verdanth:error', '%s', words);
end
values = full(double(values)); % numbers of other classes would be calculated with in theirs
end
