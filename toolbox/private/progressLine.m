function before = progressLine(text)
%progressLine  Shows how far a call is in a line that is written over, where someone looks at it; '' takes it away.
%
%   BEFORE is what was shown there, to be put back by a call within another.
persistent shown
if isempty(shown)
    shown = '';
end
before = shown;
if strcmp(text, shown) || ~someoneWatches()
    return
end
back = @(count) repmat(sprintf('\b'), 1, max(0, count));
rest = max(0, numel(shown) - numel(text));
fprintf('%s%s%s%s', back(numel(shown)), text, blanks(rest), back(rest));
shown = text;
if exist('OCTAVE_VERSION', 'builtin')
    fflush(stdout);
end
end
