function sentences = failuresAt(what, line, failing)
%failuresAt  A sentence on the points of a curve, by their numbers, at which something fails; none if it does nowhere.
sentences = cell(1, 0);
if ~isempty(failing)
    sentences{1} = sprintf('%s at %d of the points, first at %.5g K and %.5g bar', what, numel(failing), ...
                           line.T(failing(1)), line.P(failing(1)) / 1e5);
end
end
