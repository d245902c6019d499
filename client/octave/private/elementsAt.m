function [elements, next] = elementsAt(words, at, count, type, bytes)
%elementsAt  So many elements of a class, each of so many bytes, from a word on, and the word behind their padding.
used = ceil(count * bytes / 8);
next = at + used;
if next - 1 > numel(words)
    malformed(at, 'more elements than the message has room for');
end
if count == 0
    elements = zeros(0, 1, type);
    return
end
inLast = mod(count * bytes, 8);
if inLast ~= 0 && bitshift(words(next - 1), -8 * inLast) ~= 0
    malformed(next - 1, 'padding that is not 0', inLast);
end
elements = typecast(words(at:next - 1), type);
if numel(elements) > count
    elements = elements(1:count);
end
end
