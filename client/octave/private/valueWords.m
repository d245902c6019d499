function words = valueWords(value)
%valueWords  A value as it stands in a message, as a column of uint64.
if isa(value, 'double') && ~issparse(value) && ~iscomplex(value) % most of what is calculated with
    words = [header(6, 0, size(value)); typecast(value(:), 'uint64')];
    return
elseif ischar(value)
    units = uint16(value(:));
    if any(units > 127)
        units = unitsOfText(value(:).').';
    end
    words = [header(4, 0, [1, numel(units)]); paddedWords(units)];
    return
elseif iscell(value)
    parts = cell(numel(value), 1);
    for k = 1:numel(value)
        parts{k} = valueWords(value{k});
    end
    words = vertcat(header(1, 0, size(value)), parts{:});
    return
end
names = arrayClasses();
type = find(strcmp(class(value), names));
if isempty(type) || issparse(value)
    opaque = 0; % which the library can't use
    words = header(opaque, 0, size(value));
elseif islogical(value)
    words = [header(type, 0, size(value)); paddedWords(uint8(value(:)))];
else
    words = numberWords(value, type);
end
end

function words = numberWords(value, type)
if iscomplex(value)
    words = [header(type, 1, size(value)); paddedWords(real(value(:))); paddedWords(imag(value(:)))];
else
    words = [header(type, 0, size(value)); paddedWords(value(:))];
end
end

function words = header(type, flags, sizes)
words = uint64([type + 256 * flags + 2^32 * numel(sizes), sizes]).';
end

function words = paddedWords(elements)
words = zeros(0, 1, 'uint64');
if ~isempty(elements)
    bytes = typecast(elements, 'uint8');
    bytes(end + 1:8 * ceil(end / 8)) = 0;
    words = typecast(bytes, 'uint64');
end
end
