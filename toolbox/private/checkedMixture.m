function Z = checkedMixture(handle, Z)
%checkedMixture  A composition, in numbers or by names, as a row with the sum 1, after looking whether it is one.
if isstruct(Z) || iscell(Z)
    Z = capeOpenComposition(handle, Z);
end
count = numel(capeOpenCompoundList(handle));
if numel(Z) ~= count
    error('Verdanth:error', 'Invalid number of values for compositions: must match number of compounds');
end
Z = checkedNumbers(Z, @(z) z >= 0 & sum(z) > 0, 'Expected fractions that are not negative');
Z = reshape(Z, 1, count) / sum(Z(:));
end
