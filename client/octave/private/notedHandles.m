function handles = notedHandles(handles, code, given, results)
%notedHandles  The handles of open and of lost packages after a call that gave results.
create = 3;
release = 4;
if code == create && ~isempty(results) && isa(results{1}, 'int32') && isscalar(results{1})
    handles.open(end + 1, 1) = results{1};
    kept = handles.lost ~= results{1};
    handles.lost = handles.lost(kept);
    handles.reasons = handles.reasons(kept);
elseif code == release
    handles.open = handles.open(~ismember(handles.open, handleGiven(code, given)), 1); % a column, also of none
end
end
