function code = example_of(file)
% The lines of the example in a help text, as they stand.
text = fileread(file);
block = regexp(text, '%   Example:\n((?:%     .*\n)+)', 'tokens', 'once', 'dotexceptnewline');
check(~isempty(block), '%s has no example', file);
code = regexprep(block{1}, '^%     ', '', 'lineanchors');
end
