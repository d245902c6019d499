function yes = same_bits(a, b)
% Whether two values are of one class and size, both complex or both not, and have the same bits.
yes = strcmp(class(a), class(b)) && isequal(size(a), size(b)) && iscomplex(a) == iscomplex(b);
if ~yes
elseif iscell(a)
    yes = all(cellfun(@same_bits, a(:), b(:)));
elseif iscomplex(a)
    yes = same_bits(real(a), real(b)) && same_bits(imag(a), imag(b));
elseif isnumeric(a) && ~isempty(a)
    yes = isequal(typecast(a(:), 'uint8'), typecast(b(:), 'uint8'));
else
    yes = isequal(a, b);
end
end
