function tally = checkManyCalls(s, tally)
%checkManyCalls  Whether many calls take more and more memory, or time.
%
%   A round is warmed up with, and three follow. There is a leak if each of the three takes 256 kB more of memory, twice
%   what an allocator asks the system for at a time, and three further rounds do the same; calls become slower
%   if each round takes two fifths of the first more than the one before last, by the shortest of its blocks of ten
%   rows, and further rounds do the same. Other work of a machine comes and goes, and leaves some of the blocks alone.
%
%   Full, there are 10^4 calls in three rounds, of flashes by other pairs than temperature and pressure a tenth; fewer
%   of what is slow. TALLY gets MEMORY.
tally.memory = struct('kind', {}, 'calls', {}, 'perCall', {}, 'why', {});
for kind = callKinds(s)
    rare = any(regexp(kind.kind, '^flash (?!Temperature Pressure)'));
    if rare && s.quick
        continue
    end
    blocks = 334 - 300 * rare - 294 * s.quick;
    shortest = Inf;
    for k = 1:3
        shortest = min(shortest, secondsOf(kind));
    end
    blocks = max(4, min(blocks, floor((1.5 - s.quick) / shortest))); % in each round
    [used, seconds] = deal(processMemory(), zeros(1, 0));
    for round = 1:4
        [used(end + 1), seconds(end + 1)] = oneRound(kind, blocks); %#ok<AGROW>
    end
    while numel(seconds) < 7 && (leaks(used) || slows(seconds))
        [used(end + 1), seconds(end + 1)] = oneRound(kind, blocks); %#ok<AGROW>
    end
    tally = judged(tally, kind, blocks, used, seconds);
end
end

% Of a block, the same each time: ten rows, or ten calls where there is one row in each.
function seconds = secondsOf(kind)
rows = 1 + mod(0:9, kind.states).';
since = tic();
if isempty(kind.rowed)
    for k = rows.'
        kind.ask(k);
    end
else
    kind.ask(rows);
end
seconds = toc(since);
end

function [used, shortest] = oneRound(kind, blocks)
shortest = Inf;
for k = 1:blocks
    shortest = min(shortest, secondsOf(kind));
end
used = processMemory();
end

function yes = leaks(used)
yes = all(diff(used(2:end)) > leakLimit());
end

function limit = leakLimit()
limit = 2^18;
end

function yes = slows(seconds)
yes = slowing(seconds) > 0.2;
end

% What each round at least takes more than the one before last, as a part of the first, for one round: the other work of
% a machine may disturb one of them.
function part = slowing(seconds)
part = min(seconds(3:end) - seconds(1:end - 2)) / (2 * seconds(1));
end

function tally = judged(tally, kind, blocks, used, seconds)
calls = 10 * blocks;
rounds = numel(seconds) - 1; % without the one to warm up with
[~, why] = processMemory();
growth = min(diff(used(2:end))) / calls;
tally.memory(end + 1) = struct('kind', kind.kind, 'calls', calls * rounds, 'perCall', ...
                               (used(end) - used(2)) / (calls * rounds), 'why', why);
setting = kind.setting(1);
limit = leakLimit() / calls;
if isempty(why)
    lines = [setting
             {sprintf('for k = 1:%d, value = %s; end', calls, kind.call)
              'used = @() 1024 * str2double(regexp(fileread(''/proc/self/status''), ''(?<=VmRSS:\s*)\d+'', ''match''));'
              sprintf('before = used(); for k = 1:%d, value = %s; end', calls, kind.call)
              sprintf('deviation = (used() - before) / %d', calls); sprintf('limit = %.3g', limit)}];
    if ispc()
        lines = regexprep(lines, '^used = .*', 'used = @() getfield(memory(), ''MemUsedMATLAB'');');
    end
    tally = checkCompared(tally, 'failure', [kind.kind, ': the package keeps bytes of each call'], max(0, growth), ...
                          limit, [], @(row) lines);
else
    tally.skipped = tally.skipped + 1;
end
lines = [setting
         {sprintf('times = zeros(1, %d); for k = 1:%d, since = tic(); value = %s; times(k) = toc(since); end', ...
                  3 * calls, 3 * calls, kind.call)
          sprintf('times = min(reshape(times, %d, 3)); deviation = (times(3) - times(1)) / (2 * times(1))', calls)
          'limit = 0.2'}];
tally = checkCompared(tally, 'failure', [kind.kind, ': calls become slower with their number'], ...
                      max(0, slowing(seconds)), 0.2, [], @(row) lines);
end
