function [V, place] = smoothCurve(curve, parts)
%smoothCurve  Variables of a curve of curveOf with PARTS - 1 more points between any two, by cubics with its slopes.
%
%   PLACE tells of each row where it is: 2.5 is half way from the second point to the third.
V = curve.points(1, :);
place = 1;
u = (1:parts).' / parts;
for k = 2:size(curve.points, 1)
    from = curve.points(k - 1, :);
    to = curve.points(k, :);
    slopes = curve.slopes(k - 1:k, :);
    [~, fixed] = max(abs(to - from) .* (slopes(1, :) .* slopes(2, :) > 0));
    slopes = (to(fixed) - from(fixed)) * slopes ./ (slopes(:, fixed) * ones(1, numel(to)));
    if all(isfinite(slopes(:)))
        V = [V; hermite(from, to, slopes(1, :), slopes(2, :), u)]; %#ok<AGROW>
        place = [place; k - 1 + u]; %#ok<AGROW>
    else
        V = [V; to]; %#ok<AGROW>
        place = [place; k]; %#ok<AGROW>
    end
end
end
