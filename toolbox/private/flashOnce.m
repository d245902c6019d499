function [values, notes] = flashOnce(handle, given, outputs)
%flashOnce  One call of the library's batch: VALUES, rows by outputs, and what it warned of, see notesOfWarnings.
values = {};
shown = evalc('values = Verdanth(25, handle, given{1:6}, outputs, given{7});'); % else each row shows a warning
values = [values{:}];
[notes, others] = notesOfWarnings(shown, values, given);
fprintf('%s', others); % a package that prints
end
