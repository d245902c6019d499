function tally = checkListed(s, tally)
%checkListed  Each listed property of a phase is there where the phase is stable, and is a number.
%
%   It has to be positive where its nature says so.
positive = {'density', 'volume', 'heatCapacityCp', 'heatCapacityCv', 'speedOfSound', 'compressibility', ...
    'viscosity', 'thermalConductivity', 'compressibilityFactor', 'molecularWeight', 'fugacityCoefficient'};
for name = reshape(s.single, 1, [])
    before = numel(tally.findings);
    asked = tally.asked;
    pairs = any(regexpi(name{1}, '^(diffusionCoefficient|(activity|fugacity|log).*\.Dmol)')); % one state at a time
    for at = s.states
        some = evenly(numel(at.T), 200 - 198 * pairs);
        if isempty(some)
            continue
        end
        if pairs
            tally = oneByOne(s, tally, at, some, name{1});
        else
            tally = together(s, tally, at, some, name{1}, any(strcmpi(name{1}, positive)));
        end
    end
    tally = onceForAllPhases(tally, before, asked);
end
end

% What a package refuses in words for some phases or compounds, and gives for others, is a note: there is one list for
% all.
function tally = onceForAllPhases(tally, before, asked)
new = tally.findings(before + 1:end);
refused = ~cellfun(@isempty, regexp({new.what}, ' fails: ', 'once'));
if any(refused) && sum([new(refused).count]) < tally.asked - asked
    [new(refused).severity] = deal('note');
    tally.findings = [tally.findings(1:before), new];
end
end

function tally = together(s, tally, at, some, name, positive)
lines = @(row) askLines(s, at, some(row), name);
tally.asked = tally.asked + numel(some);
[values, problem] = phaseValues(s, name, at.T(some), at.P(some), at.X(some, :), at.phase);
mixed = at.X(some, :) > 0; % of a compound that is not there it may be anything
if ~isempty(problem)
    tally = checkFound(tally, 'failure', sprintf('%s: %s is listed, but fails: %s', at.phase, name, problem), ...
        stateText(at, some(1)), lines(1));
    return
elseif size(values, 2) == 1
    mixed = true(numel(some), 1);
elseif size(values, 2) ~= s.n
    tally = checkFound(tally, 'failure', sprintf('%s: %s has %d values', at.phase, name, size(values, 2)), ...
        stateText(at, some(1)), lines(1));
    return
end
tally = judged(tally, at, some, name, ~(isfinite(values) & imag(values) == 0) & mixed, 'is no number', lines, ...
    @(k) messageAt(s, at, some(k), name));
if positive
    tally = judged(tally, at, some, name, values < 0 | (values == 0 & ~strcmpi(name, 'compressibility')), ...
        'is not positive', lines, @(k) '');
end
end

function tally = judged(tally, at, some, name, bad, words, lines, message)
bad = find(any(bad, 2));
if isempty(bad)
    return
end
why = message(bad(1));
if ~isempty(why)
    words = ['fails: ', why];
end
tally = checkFound(tally, 'failure', sprintf('%s: %s %s', at.phase, name, words), stateText(at, some(bad(1))), ...
    lines(bad(1)), at.T(some(bad)), at.P(some(bad)), numel(some));
end

% The package's words where it raises an error.
function text = messageAt(s, at, row, name)
text = '';
try
    capeOpenSinglePhaseProp(s.handle, name, at.T(row), at.P(row), at.X(row, :), at.phase);
catch problem
    text = strtok(problem.message, sprintf('\n'));
end
end

function tally = oneByOne(s, tally, at, some, name)
bad = [];
words = '';
for row = some
    tally.asked = tally.asked + 1;
    try
        value = capeOpenSinglePhaseProp(s.handle, name, at.T(row), at.P(row), at.X(row, :), at.phase);
        there = at.X(row, :) > 0;
        if ~isequal(size(value), [s.n, s.n])
            bad(end + 1) = row; %#ok<AGROW>
            words = sprintf('has %d values', numel(value));
        elseif any(any(~isfinite(value(there, there))))
            bad(end + 1) = row; %#ok<AGROW>
            words = 'is no number';
        end
    catch problem
        bad(end + 1) = row; %#ok<AGROW>
        words = ['is listed, but fails: ', strtok(problem.message, sprintf('\n'))];
    end
end
if ~isempty(bad)
    tally = checkFound(tally, 'failure', sprintf('%s: %s %s', at.phase, name, words), stateText(at, bad(1)), ...
        askLines(s, at, bad(1), name), at.T(bad), at.P(bad), numel(some));
end
end

function lines = askLines(s, at, row, name)
lines = [stateLines(s, at.T(row), at.P(row), at.X(row, :))
         {sprintf('value = capeOpenSinglePhaseProp(handle, ''%s'', T, P, X, ''%s'')', name, at.phase)}];
end
