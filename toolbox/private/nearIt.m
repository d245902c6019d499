function text = nearIt(word, names)
%nearIt  A further line for a message about WORD: those of NAMES that are near it; empty if none is.
near = nearNames(word, names);
text = '';
if ~isempty(near)
    text = sprintf('\n  Near it there %s %s', isOrAre(numel(near)), strjoin(near, ', '));
end
end
