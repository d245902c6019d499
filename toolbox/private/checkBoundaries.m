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
flashes = asked(s);
if isempty(flashes)
    return
end
tally = failures(s, tally, flashes);
again = @(flash) endLines(s, flash.given);
[tally, flashes] = checkShapes(s, tally, flashes(cellfun(@isempty, {flashes.problem})), again);
if isempty(flashes)
    return
end
tally = amounts(s, tally, flashes);
tally = checkDistinct(s, tally, flashes, again);
tally = checkFugacities(s, tally, flashes, again);
tally = sides(s, tally, flashes);
end

% Dew points at temperatures and pressures of flashes that found a vapor and more, bubble points at these temperatures
% and at the pressures that they have, and dew points where condensation is retrograde: flashes with what was GIVEN.
function flashes = asked(s)
flashes = [];
some = wholeFlashes(s, s.flashes);
some = some(arrayfun(@(f) any(strcmpi(f.phases, s.vapor)) && numel(f.phases) > 1, s.flashes(some)));
without = 0;
for flash = s.flashes(some(evenly(numel(some), 24 - 20 * s.quick)))
    isVapor = any(vaporAt(s, flash.Z, flash.T, flash.P * [0.3, 0.1, 0.01, 1e-3]) == 1); % then there is a dew point
    flashes = [flashes, endFlash(s, flash.Z, 'Temperature', flash.T, 1, 'Unspecified', isVapor), ...
               endFlash(s, flash.Z, 'Pressure', flash.P, 1, 'Unspecified', false)]; %#ok<AGROW>
    if without < 4 % above its critical temperature a mixture has none, and a package may search long for it
        bubble = endFlash(s, flash.Z, 'Temperature', flash.T, 0, 'Unspecified', false);
        flashes = [flashes, bubble]; %#ok<AGROW>
        if isempty(bubble.problem)
            flashes = [flashes, endFlash(s, flash.Z, 'Pressure', bubble.P, 0, 'Unspecified', true)]; %#ok<AGROW>
        else
            without = without + 1;
        end
    end
end
mixed = find(sum(s.Z > 0, 2) > 1);
for row = reshape(mixed(evenly(numel(mixed), 6 - 4 * s.quick)), 1, [])
    for T = retrograde(s, s.Z(row, :))
        for type = {'Unspecified', 'Normal', 'Retrograde'}
            flashes = [flashes, endFlash(s, s.Z(row, :), 'Temperature', T, 1, type{1}, true)]; %#ok<AGROW>
        end
    end
end
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

% SURE tells that there has to be one.
function flash = endFlash(s, Z, held, value, fraction, type, sure)
flash = sampledFlash(s, Z, NaN, NaN, {held, value, 'vaporFraction', fraction, type});
[flash.T, flash.P] = deal(flash.Tr, flash.Pr);
flash.given = struct('Z', Z, 'held', held, 'value', value, 'fraction', fraction, 'type', type, 'sure', sure);
end

function lines = endLines(s, given)
lines = {s.opening; numbersText('X', given.Z)
         sprintf('value = %.17g;', given.value)
         sprintf(['[phases, fractions, Y, T, P] = capeOpenFlash(handle, X, ''%s'', value, ''vaporFraction'', %g, ', ...
                  '''%s'')'], given.held, given.fraction, given.type)
         'Tr = T; Pr = P;'};
end

% Ends that have to be there, but are not found.
function tally = failures(s, tally, flashes)
given = [flashes.given];
tally.asked = tally.asked + sum([given.sure]);
failed = ~cellfun(@isempty, {flashes.problem});
for kind = {'Bubble', 'Dew', 'Dew', 'Dew'; 'Unspecified', 'Unspecified', 'Normal', 'Retrograde'}
    same = strcmp({given.type}, kind{2}) & [given.sure] & [given.fraction] == strcmp(kind{1}, 'Dew');
    bad = find(same & failed);
    if ~isempty(bad)
        first = given(bad(1));
        what = sprintf('%s points, solution type %s, are not found: %s', kind{:}, flashes(bad(1)).problem);
        tally = checkFound(tally, 'note', what, sprintf('%s %.6g', lower(first.held), first.value), endLines(s, first));
        [tally.findings(end).count, tally.findings(end).asked] = deal(numel(bad), sum(same));
    end
end
end

% What was specified, and how much there is of which phase.
function tally = amounts(s, tally, flashes)
at = flashStates(s, flashes);
held = @(f) f.given.held(1); % T or P
tests = {
    'A flash at a vapor fraction does not meet the temperature or pressure', ...
        @(f) abs(f.(held(f)) / f.given.value - 1), @(f) sprintf('abs(%s / value - 1)', held(f))
    'The vapor is not the fraction that was specified', ...
        @(f) abs(sum(f.fractions(strcmpi(f.phases(:), s.vapor))) - f.given.fraction), ...
        @(f) sprintf('abs(sum(fractions(strcmpi(phases, ''%s''))) - %g)', s.vapor, f.given.fraction)
    'Phase fractions at a vapor fraction do not add up to 1', @(f) abs(sum(f.fractions) - 1), ...
        @(f) 'abs(sum(fractions) - 1)'
    'The material balance is not met at a vapor fraction', @(f) max(abs(f.fractions(:).' * f.X - f.Z)), ...
        @(f) 'max(abs(fractions(:).'' * Y - X))'
    };
for k = 1:size(tests, 1)
    [what, deviation, text] = tests{k, :};
    lines = @(row) [endLines(s, flashes(row).given)
                    {['deviation = ', text(flashes(row))]; 'limit = 1e-9'}];
    tally = checkCompared(tally, 'failure', what, arrayfun(deviation, flashes(:)), 1e-9, at, lines);
end
tally = incipient(s, tally, flashes, at);
end

% A package may leave out the phase of which there is nothing, but not sometimes.
function tally = incipient(s, tally, flashes, at)
alone = find(cellfun(@numel, {flashes.phases}) < 2);
if isempty(alone)
    return
end
severity = 'failure';
if numel(alone) == numel(flashes)
    severity = 'note';
end
lines = [endLines(s, flashes(alone(1)).given); {'deviation = double(numel(phases) < 2)'; 'limit = 0'}];
what = 'The phase of which there is nothing is not reported at a dew or bubble point';
tally = checkFound(tally, severity, what, stateText(at, alone(1)), lines, at.T(alone), at.P(alone), numel(flashes));
end

% How far from the end the phases change, and, for the types Normal and Retrograde, on which side of it there are more.
function tally = sides(s, tally, flashes)
given = [flashes.given];
[deviation, wrong] = deal(NaN(numel(given), 1));
for k = 1:numel(given)
    [deviation(k), more] = nearest(s, flashes(k), strcmp(given(k).held, 'Temperature'));
    if more ~= 0 && ~strcmp(given(k).type, 'Unspecified')
        wrong(k) = double(more ~= sideOf(given(k)));
    end
end
lines = @(row, last) [endLines(s, given(row)); sideLines(strcmp(given(row).held, 'Temperature')); last(:)];
for type = {'Unspecified', 'Normal', 'Retrograde'}
    some = find(strcmp({given.type}, type{1}));
    if isempty(some)
        continue
    end
    at = flashStates(s, flashes(some));
    limit = 1e-5 * ones(numel(some), 1);
    limit(isnan(deviation(some))) = NaN;
    what = sprintf('Beside a dew or bubble point, solution type %s, the phases are the same', type{1});
    tally = checkCompared(tally, 'failure', what, deviation(some), limit, at, @(row) lines(some(row), ...
        {'limit = 1e-5'}));
    limit = zeros(numel(some), 1);
    limit(isnan(wrong(some))) = NaN;
    what = sprintf('A dew or bubble point is not of the solution type %s', type{1});
    tally = checkCompared(tally, 'failure', what, wrong(some), limit, at, @(row) lines(some(row), ...
        {sprintf('deviation = double(more ~= %d)', sideOf(given(some(row)))); 'limit = 0'}));
end
end

% Whether more phases are expected at the higher (1) or the lower (-1) pressure or temperature, whichever is not given.
function side = sideOf(given)
side = (2 * given.fraction - 1) * (2 * strcmp(given.held, 'Temperature') - 1) * ...
    (1 - 2 * strcmp(given.type, 'Retrograde'));
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
