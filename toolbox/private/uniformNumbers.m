function [x, seed] = uniformNumbers(seed, count)
%uniformNumbers  Numbers between 0 and 1 that depend on the seed alone, the same in MATLAB and Octave.
%
%   The generator is that of Park and Miller (1988), whose products are exact in double.
x = zeros(1, count);
seed = mod(floor(abs(seed)), 2147483646) + 1;
for k = -2:count
    seed = mod(16807 * seed, 2147483647);
    if k > 0
        x(k) = seed / 2147483647;
    end
end
end
