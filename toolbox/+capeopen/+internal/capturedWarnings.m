function restore = capturedWarnings()
%capeopen.internal.capturedWarnings  Has the library's warnings written until RESTORE goes.
%
%   One line for each, for who captures them.
if exist('OCTAVE_VERSION', 'builtin')
    before = warning('query', 'Verdanth:warning');
    warning('on', 'Verdanth:warning');
else
    before = warning();
    warning('on', 'all'); % MATLAB gives those of the library no identifier
end
traced = warning('query', 'backtrace');
warning('off', 'backtrace');
[text, identifier] = lastwarn();
restore = onCleanup(@() asBefore(before, traced, text, identifier));
end

function asBefore(before, traced, text, identifier)
warning(before);
warning(traced.state, 'backtrace'); % a struct does not set it in Octave
lastwarn(text, identifier);
end
