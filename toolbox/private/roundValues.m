function values = roundValues(from, to, about)
%roundValues  Round numbers between two, in about as many steps as asked for.
step = (to - from) / about;
power = 10 ^ floor(log10(step));
step = power * min([2, 5, 10] + 100 * ([2, 5, 10] * power < step));
values = ceil(from / step) * step:step:to;
end
