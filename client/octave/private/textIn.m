function text = textIn(words)
%textIn  The text that a message has as its content.
if isempty(words)
    malformed(1, 'the message ends too early');
end
count = double(words(1));
[bytes, next] = elementsAt(words, 2, count, 'uint8', 1);
if next <= numel(words)
    malformed(next, 'the message goes on behind its end');
end
text = char(reshape(bytes, 1, []));
end
