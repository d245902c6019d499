function [derivative, limit] = extrapolated(d1, d2, d3, size, h)
%extrapolated  A derivative from differences over h, h / 2 and h / 4, and how far it may be wrong.
%
%   The differences have errors of second order: each should be a quarter off what the one before is. Three times
%   the last change is more than what the extrapolation leaves, and rounding adds that of 10^4 operations with
%   numbers of this SIZE over the smallest step. Where the changes do not fall to half, as beside a critical point
%   or where a phase ends, the limit is NaN: differences do not tell a derivative there.
derivative = (4 * d3 - d2) / 3;
rounding = 1e4 * eps * size ./ (h / 4);
limit = 3 * abs(d3 - d2) + rounding;
limit(abs(d3 - d2) > abs(d2 - d1) / 2 & abs(d3 - d2) > rounding) = NaN;
end
