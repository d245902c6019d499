function text = relationText(expression)
%relationText  An expression as it is read: names of properties as they are listed, operators without their dots.
text = regexprep(strrep(expression, '_D', '.D'), '\.([*/^])', '$1');
end
