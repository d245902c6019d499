function report = checkKept(action, report)
%checkKept  Holds the report of a check beyond an interrupt.
%
%   checkKept('keep', report)    what is done so far
%   checkKept('stopped')         says so if it has not come to its end
%   report = checkKept('last')   what was done
persistent kept
if nargin > 1
    kept = report;
elseif strcmp(action, 'last')
    report = kept;
elseif ~isempty(kept) && ~kept.complete
    progressLine('');
    done = sprintf('%d %s', numel(kept.checks), plural(numel(kept.checks), 'check'));
    if isempty(kept.checks)
        done = sprintf('%d flashes of its sample', numel(kept.flashes));
    end
    fprintf('capeOpenCheck was stopped after %s; capeOpenCheck(''last'') gives what was done\n', done);
end
end
