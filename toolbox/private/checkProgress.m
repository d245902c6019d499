function checkProgress(text)
%checkProgress  Shows which check runs, where someone looks at it; '' takes it away.
persistent shown
if isempty(shown)
    shown = 0;
end
if ~someoneWatches()
    return
end
back = @(count) repmat(sprintf('\b'), 1, max(0, count));
rest = max(0, shown - numel(text));
fprintf('%s%s%s%s', back(shown), text, blanks(rest), back(rest));
shown = numel(text);
if exist('OCTAVE_VERSION', 'builtin')
    fflush(stdout);
end
end
