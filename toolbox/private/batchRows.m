function rows = batchRows(given)
%batchRows  How many flashes the arguments of capeOpenMultiFlash behind its handle ask for.
%
%   [] where the library is the one to find fault: too few arguments, or numbers of rows that do not fit.
rows = [];
if numel(given) ~= 7
    return
end
counts = cellfun('size', given([1, 3, 5]), 1);
several = counts(counts ~= 1);
if isempty(several)
    rows = 1;
elseif several(1) > 0 && all(several == several(1))
    rows = several(1);
end
end
