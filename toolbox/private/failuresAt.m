function sentences = failuresAt(what, points, line, failing)
%failuresAt  A sentence on the POINTS of a line, by their numbers, at which something fails; none if it does nowhere.
%
%   LINE has the fields T and P; T is NaN where the temperature is not known.
sentences = cell(1, 0);
if isempty(failing)
    return
end
first = failing(1);
place = sprintf('%.5g bar', line.P(first) / 1e5);
if ~isnan(line.T(first))
    place = sprintf('%.5g K and %s', line.T(first), place);
end
sentences{1} = sprintf('%s at %d of the %s, first at %s', what, numel(failing), points, place);
end
