function tally = checkErrors(s, tally)
%checkErrors  What is wrong is refused, with words that say why, and what is right gives the same afterwards.
%
%   After each mistake a flash and properties have to be as before: to 1e-9, as what is done again in roundTrips; that
%   they are not the same to the bit, though they were when they were repeated, is a note. A composition with the sum 2
%   may be refused, or stand for the one with the sum 1.
[mistakes, sound] = wrongCalls(s);
before = answerTo(s, sound);
steady = ~isempty(before) && all(isfinite(before)) && isequal(before, answerTo(s, sound)); % else see roundTrips
outcomes = struct('severity', {}, 'said', {}, 'mistake', {});
for mistake = mistakes
    tally.asked = tally.asked + 1;
    [value, words] = answerTo(s, mistake);
    outcomes = [outcomes, judged(s, mistake, value, words)]; %#ok<AGROW>
    if steady
        tally = usable(s, tally, mistake, sound, before);
    else
        tally.skipped = tally.skipped + 1;
    end
end
tally = mergedFindings(tally);
[~, first, kind] = unique(arrayfun(@(one) [one.severity, one.said, one.mistake.subject], outcomes, 'UniformOutput', ...
                                   false));
for k = 1:numel(first)
    same = outcomes(kind == k);
    mistake = same(1).mistake;
    allOfThem = arrayfun(@(one) one.mistake.what, same, 'UniformOutput', false);
    what = sprintf('%s with %s %s', mistake.subject, strjoin(allOfThem, ', '), same(1).said);
    tally = checkFound(tally, same(1).severity, what, '', [stateLines(s, mistake.T, mistake.P, mistake.X)
                                                           {['value = ', mistake.call]}]);
    [tally.findings(end).count, tally.findings(end).asked] = deal(numel(same), numel(mistakes));
end
end

% [] if it is refused, with the words.
function [value, words] = answerTo(s, call)
value = [];
words = '';
try
    value = evaluated(call.call, {'handle'}, {s.handle}, call.T, call.P, call.X, s.R);
catch problem
    words = regexprep(strtok(problem.message, sprintf('\n')), '^\w+ failed( at [^:]*)?(:\s*|$)', '');
end
end

function outcome = judged(s, mistake, value, words)
outcome = struct('severity', {}, 'said', {}, 'mistake', {});
if isempty(value)
    if saysNothing(words)
        outcome = struct('severity', 'note', 'said', ['is refused without a reason: ', words], 'mistake', mistake);
    end
    return
elseif isnumeric(value) && all(isnan(value(:)))
    if isempty(mistake.right)
        outcome = struct('severity', 'note', 'said', 'gives NaN, and no reason', 'mistake', mistake);
    end
    return
elseif ~isempty(mistake.right)
    call = mistake;
    call.call = mistake.right;
    right = answerTo(s, call);
    if numel(right) == numel(value) && all(abs(value(:) - right(:)) <= 1e-9 * max(abs(right(:))))
        return
    end
end
outcome = struct('severity', mistake.answered, 'said', 'is answered', 'mistake', mistake);
end

% The words of the standard for a kind of error, which stand where a package has none of its own, or fewer.
function yes = saysNothing(words)
kinds = {'computation error', 'invalid argument', 'bad argument', 'bad cape-open parameter', 'invalid data', ...
         'invalid operation', 'solution error', 'not implemented', 'implementation is limited', ...
         'current implementation related error', 'index out of bounds', 'operation was timed out', ...
         'initialization error', 'invalid order of invocations', 'unspecified error', 'call failed', ...
         'the parameter is incorrect', 'parameter not valid', '<unknown error>'};
words = lower(regexprep(words, '\W+$', ''));
yes = numel(words) < 10 || any(strcmp(words, kinds)) || any(regexp(words, '^error code 0x\w+$'));
end

function tally = usable(s, tally, mistake, sound, before)
after = answerTo(s, sound);
deviation = Inf;
if numel(after) == numel(before)
    deviation = max(abs(after - before) ./ max(abs(before), 1e-300));
end
severity = 'failure';
limit = 1e-9;
if deviation <= limit
    [severity, limit] = deal('note', 0);
end
lines = [{s.opening}; conditions(s, sound); {['before = ', sound.call, ';']}
         conditions(s, mistake); {['try, value = ', mistake.call, ', catch, end']}
         conditions(s, sound); {['after = ', sound.call, ';']}
         {'deviation = max(abs(after - before) ./ max(abs(before), 1e-300))'; sprintf('limit = %g', limit)}];
what = 'What is right gives another result after a call with a mistake';
tally = checkCompared(tally, severity, what, deviation, limit, {[mistake.subject, ' with ', mistake.what]}, ...
                      @(row) lines);
end

function lines = conditions(s, call)
lines = stateLines(s, call.T, call.P, call.X);
lines(1) = []; % the package is open
end
