function outcome = flashBlock(job)
%capeopen.internal.flashBlock  One block of capeOpenMultiFlashParallel, in the process of a worker.
%
%   JOB has the fields manager and package, mass for the basis, outputs, given (the arguments of capeOpenMultiFlash but
%   the first), batch, and first, the number of its first row. OUTCOME has the last two, the VALUES (rows by outputs),
%   and the TEXTS of those ROWS that have one. Without values the block was not done: the caller comes upon the same
%   error, or does it.
persistent held name
outcome = struct('batch', job.batch, 'first', job.first, 'values', [], 'rows', [], 'texts', {{}});
try
    if isempty(held) || ~isequal(name, {job.manager, job.package}) || ~any(capeOpenHandleList() == held.Handle)
        held = capeopen.Package(job.manager, job.package);
        name = {job.manager, job.package};
    end
    bases = {'mole', 'mass'};
    before = bases{1 + capeopen.internal.isMassBasis()};
    restore = onCleanup(@() capeOpenBasis(before)); %#ok<NASGU>
    capeOpenBasis(bases{1 + job.mass});
    values = cell(1, job.outputs);
    texts = {};
    evalc('[values{:}, texts] = capeOpenMultiFlash(held.Handle, job.given{:});');
    outcome.values = [values{:}];
    outcome.rows = find(~cellfun('isempty', texts));
    outcome.texts = texts(outcome.rows); % a long cell array takes its time to travel
catch
    % not done
end
end
