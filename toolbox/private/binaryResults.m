function [x, level, y, liquids] = binaryResults(vapors, both, reasons)
%binaryResults  Branches of binaryPhaseDiagram as columns; lines that are apart are parted by a row of NaN.
[x, level, y] = deal(zeros(0, 1));
for k = 1:numel(vapors)
    if k > 1 && abs(vapors(k).level(1) / level(end) - 1) > 1e-6
        [x, level, y] = deal([x; NaN], [level; NaN], [y; NaN]);
    end
    [x, level, y] = deal([x; vapors(k).x], [level; vapors(k).level], [y; vapors(k).y]);
end
liquids = zeros(0, 3);
for k = 1:numel(both)
    if k > 1
        liquids(end + 1, :) = NaN; %#ok<AGROW>
    end
    liquids = [liquids; both(k).x, both(k).level, both(k).y]; %#ok<AGROW>
end
warnOfOpenEnds('phase diagram', reasons);
end
