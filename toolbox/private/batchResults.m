function results = batchResults(given, outputs, flash)
%batchResults  The results of a batch for a function that passes OUTPUTS on to its caller.
%
%   GIVEN are the arguments of capeOpenMultiFlash behind the handle. [values, notes] = flash(count, exact) calculates.
%   One output more than there are names is a text for each row; otherwise a warning tells what there is to tell.
withTexts = outputs > 1 && outputs == numel(capeopen.internal.namesOf(given{7})) + 1;
[values, notes] = flash(max(outputs, 1) - withTexts, withTexts);
results = num2cell(values, 1);
if withTexts
    texts = repmat({''}, size(values, 1), 1);
    if ~isempty(notes)
        texts(notes.rows) = notes.texts;
    end
    results{end + 1} = texts;
elseif ~isempty(notes)
    warnOfFailures(notes, given);
end
end
