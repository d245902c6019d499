function [values, notes] = flashRows(handle, given, outputs, exact, helpers)
%flashRows  Flashes in blocks of about a quarter of a second, so that one can see how far they are and stop them.
%
%   GIVEN are the arguments of capeOpenMultiFlash behind the handle. VALUES are rows by outputs, NOTES what flashOnce
%   says of all rows; if EXACT, each text has its row, also where warnings are off. HELPERS, if given, is called with
%   the batch and the seconds that a row takes, once these are known and what is left takes longer than a second: it
%   adds what it does to keptRows. The rest is done here.
name = 'capeOpenMultiFlash';
if nargin > 4
    name = 'capeOpenMultiFlashParallel';
end
rows = batchRows(given);
if ~exact && (isempty(rows) || rows <= 32) % too few to wait for; the rest would take longer than they do
    [values, notes] = flashOnce(handle, given, outputs);
    return
end
restore = capeopen.internal.capturedWarnings(); %#ok<NASGU>
if isempty(rows)
    [values, notes] = flashOnce(handle, given, outputs); % raises an error
    return
end
batch = keptRows('begin', rows, outputs);
told = onCleanup(@() stopped(batch, name)); %#ok<NASGU>
batchProgress(0, rows);
count = min(8, rows);
stretches = [1, rows];
while ~isempty(stretches)
    first = stretches(1, 1);
    last = min(first + count - 1, stretches(1, 2));
    part = sliceOfRows(given, first, last);
    begun = tic();
    try
        [block, words] = flashOnce(handle, part, outputs);
        if exact
            words = placedNotes(handle, part, block, words);
        end
    catch problem
        keptRows('end');
        rethrow(problem);
    end
    keptRows('add', batch, first, block, words);
    seconds = toc(begun);
    perRow = seconds / (last - first + 1);
    if nargin > 4 && ~isempty(helpers) && seconds > 0.01 && perRow * (rows - last) > 1
        helpers(batch, perRow);
        helpers = [];
    end
    count = max(1, min(8 * count, floor(0.25 / max(perRow, 1e-9)))); % a first guess is not trusted too far
    stretches = keptRows('left');
end
[values, notes] = keptRows('end');
end

function stopped(batch, name)
batchProgress(-1, 0);
keptRows('stopped', batch, name);
end
