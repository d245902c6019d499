function [kind, words, reason] = readMessage(pipe)
%readMessage  The kind of the next message and its content, a column of uint64; or why none came, '' if it is not told.
kind = 0;
words = zeros(0, 1, 'uint64');
reason = '';
bytes = readBytes(pipe, 16);
if numel(bytes) < 16
    if ~isempty(bytes)
        reason = sprintf('the stream ended at byte %d of a message', numel(bytes));
    end
    return
end
fields = typecast(bytes, 'uint32');
length = typecast(bytes(9:16), 'uint64');
if fields(2) ~= 0
    malformed(-1, 'reserved bytes that are not 0', 4);
elseif bitand(length, uint64(7)) ~= 0
    malformed(0, 'a length that is no multiple of 8');
elseif length > uint64(2)^40
    malformed(0, 'a length beyond 2^40');
end
length = double(length);
if length > 0
    bytes = readBytes(pipe, length);
    if numel(bytes) < length
        reason = sprintf('the stream ended at byte %d of a message', 16 + numel(bytes));
        return
    end
    words = typecast(bytes, 'uint64');
end
kind = double(fields(1));
end
