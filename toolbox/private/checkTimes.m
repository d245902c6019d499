function tally = checkTimes(s, tally)
%checkTimes  The time of each kind of call: median and worst, and what a call costs beside its rows.
%
%   Each state is asked several times, one call a state, in turn. A state is slow if all of its calls are: the
%   shortest takes more than 50 times that of the state in the middle, and 20 ms. A machine that does other things makes
%   some calls slower, but hardly all, and the shortest is as long as the package needs. Rows are slow if the shortest
%   batch takes three times as long as the shortest loop of calls for the same states, of thirty of both where
%   they seem to be.
%
%   TALLY gets TIMES: the line through calls of one row and a batch, of which the shortest were taken, gives the cost
%   of a call and of a row.
budget = 0.1 - 0.08 * s.quick; % seconds for calls of a kind, and twice as much for batches
tally.times = struct('kind', {}, 'calls', {}, 'median', {}, 'worst', {}, 'call', {}, 'row', {});
for kind = callKinds(s)
    [seconds, shortest] = timesOf(kind, budget);
    tally.times(end + 1) = struct('kind', kind.kind, 'calls', numel(seconds), 'median', median(seconds), 'worst', ...
                                  max(seconds), 'call', NaN, 'row', NaN);
    tally = slowStates(tally, kind, shortest);
    if ~isempty(kind.rowed)
        [tally, tally.times(end).call, tally.times(end).row] = batches(tally, kind, budget, shortest);
    end
end
end

% All times, and the shortest of each state.
function [seconds, shortest] = timesOf(kind, budget)
kind.ask(1); % what is done once is no part of it
begun = tic();
seconds = zeros(0, kind.states);
while size(seconds, 1) < 3 || (toc(begun) < budget && size(seconds, 1) < 50)
    one = zeros(1, kind.states);
    for k = 1:kind.states
        one(k) = secondsOf(kind, k);
    end
    seconds(end + 1, :) = one; %#ok<AGROW>
end
shortest = min(seconds, [], 1);
seconds = seconds(:);
end

function seconds = secondsOf(kind, rows)
since = tic();
kind.ask(rows);
seconds = toc(since);
end

function tally = slowStates(tally, kind, shortest)
limit = 0.02 + 50 * median(shortest);
for k = find(shortest > limit)
    for again = 1:5
        shortest(k) = min(shortest(k), secondsOf(kind, k));
    end
end
lines = @(k) [kind.setting(k); {sprintf('since = tic(); value = %s; deviation = toc(since)', kind.call)
                                sprintf('limit = %.3g', limit)}];
tally = checkCompared(tally, 'note', [kind.kind, ': a call takes much longer than others'], shortest(:), limit, [], ...
                      lines);
end

% In turn, so that what else the machine does falls on both.
function [tally, call, row] = batches(tally, kind, budget, shortest)
count = max(4, min(100, round(2.5e-3 / median(shortest)))); % short enough to be let alone at least once
rows = 1 + mod(0:count - 1, kind.states).';
[alone, together] = deal(zeros(0, 1));
begun = tic();
while numel(alone) < 3 || (toc(begun) < 2 * budget && numel(alone) < 7) ...
        || (min(together) > 3 * min(min(alone), sum(shortest(rows))) && numel(alone) < 30)
    since = tic();
    for k = rows.'
        kind.ask(k);
    end
    alone(end + 1) = toc(since); %#ok<AGROW>
    together(end + 1) = secondsOf(kind, rows); %#ok<AGROW>
end
one = sum(shortest(rows)) / count;
row = max(0, (min(together) - one) / (count - 1));
call = max(0, one - row);
lines = @(k) [kind.setting(1)
              {sprintf('since = tic(); for k = 1:%d, value = %s; end, alone = toc(since);', count, kind.call)
               sprintf('%s = repmat(%s, %d, 1);', kind.rowed, kind.rowed, count)
               sprintf('since = tic(); value = %s; deviation = toc(since) / alone', kind.call); 'limit = 3'}];
tally = checkCompared(tally, 'note', [kind.kind, ': rows of a batch take much longer than calls of one row each'], ...
                      min(together) / min(alone), 3, [], lines);
end
