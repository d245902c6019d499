function [notes, others] = notesOfWarnings(shown, values, given)
%notesOfWarnings  What the library warned of in a batch, from what it wrote.
%
%   GIVEN are the arguments of capeOpenMultiFlash behind its handle, VALUES its results. NOTES is [] where nothing was
%   written. It has the fields rows and texts, with the rows that failed. Other warnings do not tell their row: it lies
%   among those from first to last, fields with an element for each of the words. OTHERS was written before them.
notes = [];
others = '';
if isempty(shown)
    return
end
notes = notesOf({});
parts = regexp(shown, '(?:^|\n)(?:\[\x08)?[Ww]arning: ', 'split'); % the window of MATLAB has marks around a warning
others = parts{1};
parts = parts(2:end).';
parts = parts(~strncmp(parts, 'called from', 11)); % where both environments tell the lines of the call
parts = regexprep(parts, '(\]\x08)?\s*(\n(\[\x08)?> In .*)?$', '');
parts = regexprep(regexprep(parts, '\s*\n\s*', ' '), '^CAPE-OPEN: ', '');
flashes = strncmp(parts, 'Flash failed at ', 16);
notes.texts = parts(flashes);
notes.rows = failedRows(values, notes.texts, given);
if ~all(flashes)
    bounds = [0; notes.rows; size(values, 1) + 1];
    before = cumsum(flashes);
    before = before(~flashes);
    notes.first = bounds(before + 1) + 1;
    notes.last = min(bounds(before + 2), size(values, 1)); % what failed may have been warned of before
    notes.words = parts(~flashes);
end
end

% Texts come in the order of their rows, and a row that failed is NaN; so may be others, which these values tell apart.
function rows = failedRows(values, texts, given)
candidates = find(all(isnan(values), 2));
rows = candidates;
if numel(candidates) == numel(texts)
    return
end
rows = zeros(numel(texts), 1);
at = 0;
for k = 1:numel(texts)
    at = at + 1;
    while at < numel(candidates) && ~isOf(texts{k}, sliceOfRows(given, candidates(at), candidates(at)))
        at = at + 1;
    end
    rows(k) = candidates(min(at, end));
end
end

function answer = isOf(text, one)
start = lower(sprintf('Flash failed at %g, %g: ', one{3}, one{5}));
answer = strncmpi(text, start, numel(start));
end
