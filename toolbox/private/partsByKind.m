function parts = partsByKind(rows, vaporFraction)
%partsByKind  Dew points, bubble points and points of a second liquid of a line, with NaN in the place of the others.
%
%   PARTS are three copies of ROWS, in which each kind goes on to the first row of the next one, so that there is no
%   gap. Rows of NaN are of no kind.
kind = 2 - vaporFraction;
kind(isnan(kind)) = 3;
kind(any(isnan(rows), 2)) = 0;
parts = cell(1, 3);
for k = 1:3
    here = kind == k;
    parts{k} = rows;
    parts{k}(~(here | [false; here(1:end - 1)]), :) = NaN;
end
end
