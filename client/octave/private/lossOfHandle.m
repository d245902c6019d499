function text = lossOfHandle(words, handles, code, given)
%lossOfHandle  What to add to the words of an error: why a handle is none any more. '' if that is not known.
text = '';
handle = handleGiven(code, given);
if ~strcmp(words, 'Invalid property package handle') || isempty(handle)
    return
end
place = find(handles.lost == handle, 1, 'last');
if ~isempty(place)
    text = [': its package was lost with its process (' handles.reasons{place} ')'];
end
end
