function text = textOf(x)
%textOf  An argument as it was typed, if it is text or a number.
if ischar(x)
    text = x;
elseif iscellstr(x) && numel(x) == 1 %#ok<ISCLSTR>
    text = x{1};
elseif isnumeric(x) && isscalar(x)
    text = sprintf('%g', x);
else
    text = described(x);
end
end
