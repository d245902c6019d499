function malformed(word, what, behind)
%malformed  Refuse a message for what stands in the given word of its content, so many bytes behind its beginning.
if nargin < 3
    behind = 0;
end
error('Verdanth:malformed', 'byte %d of a message: %s', 8 + 8 * word + behind, what);
end
