function value = checkedPositive(value, quantity)
%checkedPositive  The temperature or pressure of a diagram as a double; QUANTITY is its name in the error for others.
if ~isscalar(value)
    value = NaN; % which is refused, too
end
value = checkedNumbers(value, @(v) v > 0, ['Expected a positive ', quantity]);
end
