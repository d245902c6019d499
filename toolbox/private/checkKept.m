function report = checkKept(action, report, run)
%checkKept  Holds the report of a check beyond an interrupt.
%
%   checkKept('keep', report)      what is done so far
%   run = checkKept('run')         workers begin, or have ended: what those of another run still send does not count
%   checkKept('add', part, run)    what one of them has done, if it is not []
%   checkKept('stopped')           says so if it has not come to its end
%   report = checkKept('last')     what was done
persistent kept current
switch action
    case 'keep'
        kept = report;
    case 'run'
        current = sum([current, 1]);
        report = current;
    case 'add'
        if ~isempty(report) && run == current
            kept = checkAdded(kept, report);
        end
    case 'last'
        report = kept;
    case 'stopped'
        if ~isempty(kept) && ~kept.complete && ~isempty(kept.flashes) % else an error tells what is wrong
            tellStopped(kept);
        end
end
end

function tellStopped(kept)
progressLine('');
done = sprintf('%d %s', numel(kept.checks), plural(numel(kept.checks), 'check'));
if isempty(kept.checks)
    done = sprintf('%d flashes of its sample', numel(kept.flashes));
end
fprintf('capeOpenCheck was stopped after %s; capeOpenCheck(''last'') gives what was done\n', done);
end
