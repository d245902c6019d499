function part = checkOnWorker(job)
%checkOnWorker  One check in the process of a worker, with a package that stays open there; [] if it can not be opened.
%
%   JOB has the name of the check, the sample, and the names of manager and package.
part = [];
s = job.sample;
try
    s.handle = capeopen.internal.heldPackage(job.package);
catch
    return
end
restore = moleBasis(); %#ok<NASGU>
silent = withoutWarnings(); %#ok<NASGU>
part = checkPart(s, job.name);
end
