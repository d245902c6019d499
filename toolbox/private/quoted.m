function text = quoted(names)
%quoted  Names as they are typed: one in quotation marks, or a cell array of them.
names = strcat('''', strrep(cellstr(names), '''', ''''''), '''');
text = strjoin(reshape(names, 1, []), ', ');
if numel(names) > 1
    text = ['{', text, '}'];
end
end
