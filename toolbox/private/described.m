function text = described(x)
%described  What an argument is, for a message: its size if it is an array, and its class.
if numel(x) == 1
    text = ['a ', class(x)];
else
    sizes = arrayfun(@(n) sprintf('%d', n), size(x), 'UniformOutput', false);
    text = sprintf('%s %s', strjoin(sizes, '-by-'), class(x));
end
if isnumeric(x) && ~isreal(x)
    text = [text, ' with an imaginary part'];
end
end
