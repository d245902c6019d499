function outcome = flashBlock(job)
%capeopen.internal.flashBlock  One block of capeOpenMultiFlashParallel, in the process of a worker.
%
%   JOB has the fields manager and package, mass for the basis, outputs, given (the arguments of capeOpenMultiFlash but
%   the first) and number. OUTCOME has the NUMBER of the block, its VALUES (rows by outputs), and CLEAN: false if
%   anything failed or was warned of. Then VALUES count for nothing, and whoever reads this calculates the block once
%   more to hear of it.
persistent held name
if isempty(held) || ~isequal(name, {job.manager, job.package})
    held = capeopen.Package(job.manager, job.package);
    name = {job.manager, job.package};
end
outcome = struct('number', job.number, 'values', [], 'clean', false);
values = cell(1, job.outputs);
bases = {'mole', 'mass'};
before = bases{1 + strcmp(capeOpenPropUnit('density'), 'kg / m3')};
restore = onCleanup(@() capeOpenBasis(before)); %#ok<NASGU>
capeOpenBasis(bases{1 + job.mass});
capeOpenWarnings(1);
lastwarn('');
try
    evalc('[values{:}] = capeOpenMultiFlash(held.Handle, job.given{:});');
    outcome.values = [values{:}];
    outcome.clean = isempty(lastwarn());
catch
    % not clean: the caller comes upon the same error
end
end
