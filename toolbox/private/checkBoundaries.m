function tally = checkBoundaries(s, tally)
%checkBoundaries  Flashes at vapor fractions 0 and 1 give the ends of the region that those at T and P find.
%
%   The phases are there, with all of the mixture in one of them; their fugacities agree; and beside the temperature and
%   pressure found, flashes at these find other phases on one side than on the other. Dew and bubble points converge to
%   1e-6 at least: the phases change within 1e-5 of the temperature or the pressure. Where condensation is retrograde,
%   there are two pressures for a temperature, and the solution types Normal and Retrograde tell which of them: the
%   vapor fraction falls with pressure and rises with temperature at a normal one.
if isempty(s.vapor) || ~any(strcmpi(s.flashProps, 'vaporFraction'))
    return
end
[ends, results] = asked(s);
if isempty(ends)
    return
end
tally = failures(s, tally, ends, results);
solved = cellfun(@isempty, {results.problem});
ends = ends(solved);
tagged = results(solved);
for k = 1:numel(ends)
    tagged(k).problem = k; % its number stays with it
end
[tally, results] = checkShapes(s, tally, tagged, @(flash) endLines(s, ends(flash.problem)));
ends = ends([results.problem]);
if isempty(results)
    return
end
tally = amounts(s, tally, ends, results);
again = @(flash) endLines(s, ends([results.problem] == flash.problem));
tally = checkDistinct(s, tally, results, again);
tally = checkFugacities(s, tally, results, again);
tally = sides(s, tally, ends, results);
end

% Dew points at temperatures and pressures of flashes that found a vapor and more, bubble points at these temperatures
% and at the pressures that they have, and dew points where condensation is retrograde.
function [ends, results] = asked(s)
ends = repmat(oneEnd([], '', NaN, NaN, '', false), 1, 0);
some = wholeFlashes(s, s.flashes);
some = some(arrayfun(@(f) any(strcmpi(f.phases, s.vapor)) && numel(f.phases) > 1, s.flashes(some)));
results = s.flashes(zeros(1, 0));
without = 0;
for flash = s.flashes(some(evenly(numel(some), 24 - 20 * s.quick)))
    isVapor = any(vaporAt(s, flash.Z, flash.T, flash.P * [0.3, 0.1, 0.01, 1e-3]) == 1); % then there is a dew point
    new = [oneEnd(flash.Z, 'Temperature', flash.T, 1, 'Unspecified', isVapor), ...
           oneEnd(flash.Z, 'Pressure', flash.P, 1, 'Unspecified', false)];
    found = [endFlash(s, new(1)), endFlash(s, new(2))];
    if without < 4 % above its critical temperature a mixture has none, and a package may search long for it
        new(3) = oneEnd(flash.Z, 'Temperature', flash.T, 0, 'Unspecified', false);
        found(3) = endFlash(s, new(3));
        if isempty(found(3).problem)
            new(4) = oneEnd(flash.Z, 'Pressure', found(3).P, 0, 'Unspecified', true);
            found(4) = endFlash(s, new(4));
        else
            without = without + 1;
        end
    end
    [ends, results] = deal([ends, new], [results, found]);
end
mixed = find(sum(s.Z > 0, 2) > 1);
for row = reshape(mixed(evenly(numel(mixed), 6 - 4 * s.quick)), 1, [])
    for T = retrograde(s, s.Z(row, :))
        for type = {'Unspecified', 'Normal', 'Retrograde'}
            ends(end + 1) = oneEnd(s.Z(row, :), 'Temperature', T, 1, type{1}, true); %#ok<AGROW>
            results(end + 1) = endFlash(s, ends(end)); %#ok<AGROW>
        end
    end
end
end

function e = oneEnd(Z, held, value, fraction, type, sure)
e = struct('Z', Z, 'held', held, 'value', value, 'fraction', fraction, 'type', type, 'sure', sure);
end

% Temperatures at which, as pressure rises, a liquid comes and goes again: by the flashes at temperature and pressure,
% once more between the last pressure at which there are two phases and the next.
function some = retrograde(s, Z)
T = (Z * s.T0.') * (0.85:0.05:1.4).';
P = repmat(exp(linspace(log(1e4), log(3 * (Z * s.P0.')), 24)), numel(T), 1);
fraction = vaporAt(s, Z, T, P);
upper = zeros(size(T));
for k = 1:numel(T)
    last = find(fraction(k, :) > 0 & fraction(k, :) < 1, 1, 'last');
    if numel(last) == 1 && last < size(P, 2) && any(fraction(k, 1:last) == 1)
        upper(k) = last;
    end
end
T = T(upper > 0);
P = P(upper > 0, :);
first = P(sub2ind(size(P), (1:numel(T)).', upper(upper > 0)));
next = P(sub2ind(size(P), (1:numel(T)).', upper(upper > 0) + 1));
P = bsxfun(@plus, first, (next - first) * linspace(0, 1, 24));
fraction = vaporAt(s, Z, T, P);
again = false(size(T));
for k = 1:numel(T)
    last = find(fraction(k, :) > 0 & fraction(k, :) < 1, 1, 'last');
    % Of a bubble point it would be near 0; and what was the vapor may be a second liquid beyond.
    again(k) = numel(last) == 1 && last < size(P, 2) && fraction(k, last) > 0.6 ...
        && numel(sampledFlash(s, Z, T(k), P(k, last + 1)).phases) == 1;
end
some = T(again).';
some = some(evenly(numel(some), 3 - 2 * s.quick));
end

function fraction = vaporAt(s, Z, T, P)
T = repmat(T, 1, size(P, 2));
fraction = NaN(size(P));
if isempty(P)
    return
end
try
    fraction(:) = capeOpenMultiFlash(s.handle, Z, 'Temperature', T(:), 'Pressure', P(:), 'Unspecified', ...
                                     'vaporFraction');
catch
    % no flash, no dew point
end
end

function flash = endFlash(s, e)
flash = sampledFlash(s, e.Z, NaN, NaN, {e.held, e.value, 'vaporFraction', e.fraction, e.type});
[flash.T, flash.P] = deal(flash.Tr, flash.Pr);
end

function lines = endLines(s, e)
lines = {s.opening; numbersText('X', e.Z)
         sprintf('value = %.17g;', e.value)
         sprintf(['[phases, fractions, Y, T, P] = capeOpenFlash(handle, X, ''%s'', value, ''vaporFraction'', %g, ', ...
                  '''%s'')'], e.held, e.fraction, e.type)
         'Tr = T; Pr = P;'};
end

% Ends that have to be there, but are not found.
function tally = failures(s, tally, ends, results)
tally.asked = tally.asked + sum([ends.sure]);
failed = ~cellfun(@isempty, {results.problem});
for kind = {'Bubble', 'Dew', 'Dew', 'Dew'; 'Unspecified', 'Unspecified', 'Normal', 'Retrograde'}
    same = strcmp({ends.type}, kind{2}) & [ends.sure] & [ends.fraction] == strcmp(kind{1}, 'Dew');
    bad = find(same & failed);
    if ~isempty(bad)
        first = ends(bad(1));
        what = sprintf('%s points, solution type %s, are not found: %s', kind{:}, results(bad(1)).problem);
        tally = checkFound(tally, 'note', what, sprintf('%s %.6g', lower(first.held), first.value), endLines(s, first));
        [tally.findings(end).count, tally.findings(end).asked] = deal(numel(bad), sum(same));
    end
end
end

% What was specified, and how much there is of which phase.
function tally = amounts(s, tally, ends, results)
at = flashStates(s, results);
held = @(k) char(84 * strcmp(ends(k).held, 'Temperature') + 80 * strcmp(ends(k).held, 'Pressure')); % T or P
vapor = @(f) strcmpi(f.phases(:), s.vapor);
list = 1:numel(ends);
tests = {
    'A flash at a vapor fraction does not meet the temperature or pressure', 1e-9, ...
        arrayfun(@(k) abs(results(k).(held(k)) / ends(k).value - 1), list), @(k) sprintf('abs(%s / value - 1)', held(k))
    'The vapor is not the fraction that was specified', 1e-9, ...
        arrayfun(@(k) abs(sum(results(k).fractions(vapor(results(k)))) - ends(k).fraction), list), ...
        @(k) sprintf('abs(sum(fractions(strcmpi(phases, ''%s''))) - %g)', s.vapor, ends(k).fraction)
    'Phase fractions at a vapor fraction do not add up to 1', 1e-9, ...
        arrayfun(@(f) abs(sum(f.fractions) - 1), results), @(k) 'abs(sum(fractions) - 1)'
    'The material balance is not met at a vapor fraction', 1e-9, ...
        arrayfun(@(f) max(abs(f.fractions(:).' * f.X - f.Z)), results), @(k) 'max(abs(fractions(:).'' * Y - X))'
    };
for k = 1:size(tests, 1)
    [what, limit, deviation, text] = tests{k, :};
    lines = @(row) [endLines(s, ends(row)); {['deviation = ', text(row)]; sprintf('limit = %g', limit)}];
    tally = checkCompared(tally, 'failure', what, deviation(:), limit, at, lines);
end
tally = incipient(s, tally, ends, results, at);
end

% A package may leave out the phase of which there is nothing, but not sometimes.
function tally = incipient(s, tally, ends, results, at)
alone = find(cellfun(@numel, {results.phases}) < 2);
if isempty(alone)
    return
end
severity = 'failure';
if numel(alone) == numel(results)
    severity = 'note';
end
lines = [endLines(s, ends(alone(1))); {'deviation = double(numel(phases) < 2)'; 'limit = 0'}];
what = 'The phase of which there is nothing is not reported at a dew or bubble point';
tally = checkFound(tally, severity, what, stateText(at, alone(1)), lines, at.T(alone), at.P(alone), numel(results));
end

% How far from the end the phases change, and, for the types Normal and Retrograde, on which side of it there are more.
function tally = sides(s, tally, ends, results)
[deviation, wrong] = deal(NaN(numel(ends), 1));
for k = 1:numel(ends)
    [deviation(k), more] = nearest(s, results(k), strcmp(ends(k).held, 'Temperature'));
    if more ~= 0 && ~strcmp(ends(k).type, 'Unspecified')
        wrong(k) = double(more ~= sideOf(ends(k)));
    end
end
lines = @(row, last) [endLines(s, ends(row)); sideLines(strcmp(ends(row).held, 'Temperature')); last(:)];
for type = {'Unspecified', 'Normal', 'Retrograde'}
    some = find(strcmp({ends.type}, type{1}));
    if isempty(some)
        continue
    end
    at = flashStates(s, results(some));
    limit = 1e-5 * ones(numel(some), 1);
    limit(isnan(deviation(some))) = NaN;
    what = sprintf('Beside a dew or bubble point, solution type %s, the phases are the same', type{1});
    tally = checkCompared(tally, 'failure', what, deviation(some), limit, at, @(row) lines(some(row), ...
        {'limit = 1e-5'}));
    limit = zeros(numel(some), 1);
    limit(isnan(wrong(some))) = NaN;
    what = sprintf('A dew or bubble point is not of the solution type %s', type{1});
    tally = checkCompared(tally, 'failure', what, wrong(some), limit, at, @(row) lines(some(row), ...
        {sprintf('deviation = double(more ~= %d)', sideOf(ends(some(row)))); 'limit = 0'}));
end
end

% Whether more phases are expected at the higher (1) or the lower (-1) pressure or temperature, whichever is not given.
function side = sideOf(e)
side = (2 * e.fraction - 1) * (2 * strcmp(e.held, 'Temperature') - 1) * (1 - 2 * strcmp(e.type, 'Retrograde'));
end

% The smallest step, as a part of pressure or temperature, between both sides of which the phases differ; Inf if there
% is none, NaN if a flash fails. MORE is 1 or -1 where the variable that was not given leads to more of them.
function [step, more] = nearest(s, flash, byPressure)
failed = false;
more = 0;
for step = [1e-6, 1e-5, 1e-4, 1e-3, 1e-2]
    for move = [byPressure, ~byPressure; ~byPressure, byPressure].'
        try
            a = capeOpenFlash(s.handle, flash.Z, 'Temperature', flash.T * (1 - step * move(2)), ...
                              'Pressure', flash.P * (1 - step * move(1)));
            b = capeOpenFlash(s.handle, flash.Z, 'Temperature', flash.T * (1 + step * move(2)), ...
                              'Pressure', flash.P * (1 + step * move(1)));
        catch
            failed = true;
            continue
        end
        if ~isequal(sort(a(:)), sort(b(:)))
            if move(1) == byPressure
                more = sign(numel(b) - numel(a));
            end
            return
        end
    end
end
step = Inf;
if failed
    step = NaN;
end
end

function lines = sideLines(byPressure)
lines = {'deviation = Inf; more = 0;'
         'ask = @(T, P) sort(capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P));'
         'for step = [1e-2, 1e-3, 1e-4, 1e-5, 1e-6]'
         '    a = ask(T * (1 - step), P); b = ask(T * (1 + step), P);'
         '    c = ask(T, P * (1 - step)); d = ask(T, P * (1 + step));'
         '    if ~isequal(a, b) || ~isequal(c, d), deviation = step, more = sign(numel(d) - numel(c)); end'
         'end'};
if ~byPressure
    lines{6} = strrep(lines{6}, 'numel(d) - numel(c)', 'numel(b) - numel(a)');
end
end
