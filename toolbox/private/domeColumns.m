function [value, T, P, vaporFraction] = domeColumns(dome)
%domeColumns  Lines of saturationDome as columns, parted by NaN where they do not join.
[value, T, P, vaporFraction] = deal(zeros(0, 1));
for k = 1:numel(dome)
    if k > 1 && (abs(dome(k).T(1) - T(end)) > 1e-3 * T(end) || abs(dome(k).P(1) - P(end)) > 1e-2 * P(end))
        [value, T, P, vaporFraction] = deal([value; NaN], [T; NaN], [P; NaN], [vaporFraction; NaN]);
    end
    value = [value; dome(k).value]; %#ok<AGROW>
    T = [T; dome(k).T]; %#ok<AGROW>
    P = [P; dome(k).P]; %#ok<AGROW>
    vaporFraction = [vaporFraction; dome(k).vaporFraction]; %#ok<AGROW>
end
end
