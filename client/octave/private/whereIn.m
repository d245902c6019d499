function text = whereIn(code)
%whereIn  What was being done when a call of a command failed.
[name, ~, calculates] = commandWords(code);
if isempty(name)
    text = sprintf('in command %d', code);
elseif calculates
    text = ['while calculating ' name];
else
    text = ['in ' name];
end
end
