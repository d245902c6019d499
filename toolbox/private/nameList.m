function names = nameList(names)
%nameList  The names of a text with blanks between them, or of a cell array, as a cell array.
if ischar(names)
    names = regexp(names(:).', '\S+', 'match');
end
end
