function restore = capturedWarnings()
%capturedWarnings  Has the library's warnings written, one line for each, until RESTORE goes: for who captures them.
state = warning();
[text, identifier] = lastwarn();
restore = onCleanup(@() asBefore(state, text, identifier));
if exist('OCTAVE_VERSION', 'builtin')
    warning('on', 'Verdanth:warning');
else
    warning('on', 'all'); % MATLAB gives them no identifier
end
warning('off', 'backtrace');
end

function asBefore(state, text, identifier)
warning(state);
lastwarn(text, identifier);
end
