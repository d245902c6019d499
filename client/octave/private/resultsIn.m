function results = resultsIn(words)
%resultsIn  The results that a message has as its content, a cell. It ends where one is missing.
if isempty(words)
    malformed(1, 'the message ends too early');
end
fields = typecast(words(1), 'uint32');
if fields(2) ~= 0
    malformed(1, 'reserved bytes that are not 0', 4);
end
[results, next, isMissing] = valuesAt(words, 2, double(fields(1)), 0);
if next <= numel(words)
    malformed(next, 'the message goes on behind its end');
end
results = results(1:min([find(isMissing, 1) - 1, end]));
end

function [values, at, isMissing] = valuesAt(words, at, count, depth)
if count > numel(words) - at + 1
    malformed(at, 'more values than the message has room for');
end
values = cell(1, count);
isMissing = false(1, count);
for k = 1:count
    [values{k}, at, isMissing(k)] = valueAt(words, at, depth);
end
end

function [value, next, isMissing] = valueAt(words, at, depth)
missing = 255;
opaque = 0;
[names, bytes] = arrayClasses();
if at > numel(words)
    malformed(at, 'the message ends too early');
end
head = double(typecast(words(at), 'uint8'));
type = head(1);
isMissing = type == missing;
isKnown = isMissing || type == opaque || (type <= numel(names) && ~isempty(names{type}));
if ~isKnown
    malformed(at, 'a class that there is not');
elseif head(2) ~= 0 && (head(2) ~= 1 || type < 6 || isMissing)
    malformed(at, 'flags that this class does not have');
elseif any(head(3:4))
    malformed(at, 'reserved bytes that are not 0');
end
rank = double(bitshift(words(at), -32));
value = [];
next = at + 1 + rank;
if (isMissing && rank ~= 0) || (~isMissing && rank < 2)
    malformed(at, 'a number of dimensions that this class does not have');
elseif next - 1 > numel(words)
    malformed(at + 1, 'more dimensions than the message has room for');
elseif isMissing
    return
end
sizes = double(words(at + 1:next - 1)).';
if any(sizes >= 2^63)
    malformed(at + 1, 'a dimension beyond 2^63');
end
count = prod(sizes);
if any(sizes == 0)
    count = 0;
elseif count >= 2^63
    malformed(at + 1, 'more elements than 2^63');
end
if type == opaque
    return
elseif strcmp(names{type}, 'cell')
    if depth >= 32
        malformed(next, 'cells that are too deep');
    end
    [value, next] = valuesAt(words, next, count, depth + 1);
    value = reshape(value, sizes);
    return
elseif strcmp(names{type}, 'char')
    [units, next] = elementsAt(words, next, count, 'uint16', 2);
    value = textOfUnits(units);
    return
elseif strcmp(names{type}, 'logical')
    first = next;
    [value, next] = elementsAt(words, first, count, 'uint8', 1);
    if any(value > 1)
        malformed(first, 'a logical that is neither 0 nor 1');
    end
    value = logical(value);
else
    [value, next] = elementsAt(words, next, count, names{type}, bytes(type));
    if head(2) ~= 0
        [imaginary, next] = elementsAt(words, next, count, names{type}, bytes(type));
        value = complex(value, imaginary);
    end
end
value = reshape(value, sizes);
end
