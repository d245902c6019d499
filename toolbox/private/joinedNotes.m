function joined = joinedNotes(notes)
%joinedNotes  What flashOnce said of several blocks, in one, with the rows in their order.
joined = [];
if isempty(notes)
    return
end
joined = notesOf({});
for field = {'rows', 'texts', 'first', 'last', 'words'}
    columns = cellfun(@(one) one.(field{1}), notes, 'UniformOutput', false);
    joined.(field{1}) = vertcat(joined.(field{1}), columns{:});
end
[joined.rows, order] = sort(joined.rows);
joined.texts = joined.texts(order);
[joined.first, order] = sort(joined.first);
joined.last = joined.last(order);
joined.words = joined.words(order);
end
