function batchProgress(done, total)
%batchProgress  Tells how many rows of a batch are done, their rate and the time left, where someone looks at it.
%
%   0 rows begin a batch; -1 ends it. Nothing is shown of what takes less than about two seconds.
persistent begun before next
if done == 0
    begun = tic();
    before = [];
    next = 1;
    return
end
seconds = toc(begun);
if done < 0 || done >= total
    if ischar(before)
        progressLine(before);
    end
    before = [];
elseif seconds >= next && (next > 1 || seconds * total >= 2 * done)
    next = seconds + 0.5;
    digits = max(0, 2 - floor(log10(done / seconds)));
    covered = progressLine(sprintf('%d of %d rows, %.*f rows/s, %s left', done, total, digits, done / seconds, ...
                                   duration(seconds * (total - done) / done)));
    if ~ischar(before)
        before = covered;
    end
end
end

function text = duration(seconds)
if seconds < 100
    text = sprintf('%.0f s', seconds);
elseif seconds < 6000
    text = sprintf('%.0f min', seconds / 60);
else
    text = sprintf('%.1f h', seconds / 3600);
end
end
