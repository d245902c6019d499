function handles = lostHandles(handles, reason)
%lostHandles  The handles after the process of the packages has ended for some reason.
handles.lost = [handles.lost; handles.open];
handles.reasons = [handles.reasons; repmat({reason}, numel(handles.open), 1)];
handles.open = zeros(0, 1, 'int32');
end
