function part = checkOnWorker(job)
%checkOnWorker  One check in the process of a worker, with a package that stays open there; [] if it can not be opened.
%
%   JOB has the name of the check, the sample, and the names of manager and package.
persistent held names
part = [];
try
    if isempty(held) || ~isequal(names, job.package) || ~any(capeOpenHandleList() == held.Handle)
        held = capeopen.Package(job.package{:});
        names = job.package;
    end
    s = job.sample;
    s.handle = held.Handle;
catch
    return
end
restore = moleBasis(); %#ok<NASGU>
silent = withoutWarnings(); %#ok<NASGU>
part = checkPart(s, job.name);
end
