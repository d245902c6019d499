function outcome = flashBlock(job)
%capeopen.internal.flashBlock  One block of capeOpenMultiFlashParallel, in the process of a worker.
%
%   JOB has the fields manager and package, mass for the basis, outputs, given (the arguments of capeOpenMultiFlash but
%   the first), exact, batch, and first, the number of its first row. OUTCOME has the last two, the VALUES (rows by
%   outputs), and the TEXTS of those ROWS that have one if EXACT, otherwise what the library has SHOWN. Without values
%   the block was not done: the caller comes upon the same error, or does it.
outcome = struct('batch', job.batch, 'first', job.first, 'values', [], 'rows', [], 'texts', {{}}, 'shown', '');
try
    handle = capeopen.internal.heldPackage({job.manager, job.package});
    bases = {'mole', 'mass'};
    before = bases{1 + capeopen.internal.isMassBasis()};
    restore = onCleanup(@() capeOpenBasis(before)); %#ok<NASGU>
    capeOpenBasis(bases{1 + job.mass});
    values = cell(1, job.outputs);
    texts = {};
    if job.exact
        evalc('[values{:}, texts] = capeOpenMultiFlash(handle, job.given{:});');
    else
        written = capeopen.internal.capturedWarnings(); %#ok<NASGU>
        outcome.shown = evalc('values = Verdanth(25, handle, job.given{1:6}, job.outputs, job.given{7});');
    end
    outcome.values = [values{:}];
    outcome.rows = find(~cellfun('isempty', texts));
    outcome.texts = texts(outcome.rows); % a long cell array takes its time to travel
catch
    % not done
end
end
