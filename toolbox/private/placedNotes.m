function notes = placedNotes(handle, given, values, notes)
%placedNotes  Gives each warning of flashOnce its row, by calculating rows again whose warnings do not tell it.
%
%   Where warnings are off, rows that failed are calculated again with warnings.
if isempty(notes)
    notes = notesOf({});
end
again = false(size(values, 1), 1);
for k = 1:numel(notes.first)
    again(notes.first(k):notes.last(k)) = true;
end
silent = all(isnan(values), 2);
silent(notes.rows) = false;
if any(silent) && ~warningsAreOn(handle, given)
    again = again | silent;
    capeOpenWarnings(1);
    off = onCleanup(@() capeOpenWarnings(0)); %#ok<NASGU>
end
texts = cell(size(values, 1), 1);
texts(notes.rows) = notes.texts;
for row = find(again).'
    [~, one] = flashOnce(handle, sliceOfRows(given, row, row), size(values, 2));
    if ~isempty(one)
        texts{row} = strjoin([one.words; one.texts].', '; ');
    end
end
notes = notesOf(texts);
end
