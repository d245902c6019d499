function v = hermite(from, to, slopeFrom, slopeTo, u)
%hermite  The cubic with given values and slopes at its ends, at the parts U (a column) of the way between them.
difference = to - from;
v = from + u * slopeFrom + u .^ 2 * (3 * difference - 2 * slopeFrom - slopeTo) ...
    + u .^ 3 * (slopeFrom + slopeTo - 2 * difference);
end
