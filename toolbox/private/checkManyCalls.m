function tally = checkManyCalls(s, tally)
%checkManyCalls  Whether many calls take more and more memory, or time.
%
%   A round is warmed up with, and three follow. There is a leak if each of the three takes 256 kB more of memory, twice
%   what an allocator asks the system for at a time, and three further rounds do the same; calls become slower
%   if each round takes a fifth of the first more than the one before, by the shortest of its blocks of ten rows, and
%   further rounds do the same. Other work of a machine comes and goes, and leaves some of the blocks alone.
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
    since = tic();
    block(kind, 1);
    blocks = max(4, min(blocks, floor((1.5 - s.quick) / toc(since)))); % in each round
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

% Ten rows, or ten calls where there is one row in each.
function block(kind, first)
rows = 1 + mod(first + (0:9), kind.states).';
if isempty(kind.rowed)
    for k = rows.'
        kind.ask(k);
    end
else
    kind.ask(rows);
end
end

function [used, shortest] = oneRound(kind, blocks)
shortest = Inf;
for k = 1:blocks
    since = tic();
    block(kind, 0); % the same each time
    shortest = min(shortest, toc(since));
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
yes = all(diff(seconds) > 0.2 * seconds(1));
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
slower = min(diff(seconds)) / seconds(1);
lines = [setting
         {sprintf('times = zeros(1, %d); for k = 1:%d, since = tic(); value = %s; times(k) = toc(since); end', ...
                  3 * calls, 3 * calls, kind.call)
          sprintf('times = reshape(times, %d, 3); times = min(times); deviation = min(diff(times)) / times(1)', calls)
          'limit = 0.2'}];
tally = checkCompared(tally, 'failure', [kind.kind, ': calls become slower with their number'], max(0, slower), ...
                      0.2, [], @(row) lines);
end
