function names = namesOf(given)
%capeopen.internal.namesOf  The names in a text with blanks between them, or in a cell array of such texts, as a row.
given = capeopen.internal.charsOf(given);
if ischar(given)
    given = cellstr(given);
end
names = {};
if iscellstr(given) %#ok<ISCLSTR>
    names = strsplit(strjoin(given(:).', ' '), ' ');
    names = names(~cellfun('isempty', names));
end
end
