function notes = notesOf(texts)
%notesOf  Notes like those of flashOnce, of a text for each row, '' or [] where there is nothing to say.
rows = find(~cellfun('isempty', texts(:)));
notes = struct('rows', rows, 'texts', {reshape(texts(rows), [], 1)}, 'first', zeros(0, 1), 'last', zeros(0, 1), ...
               'words', {cell(0, 1)});
end
