function tally = checkTrips(s, tally)
%checkTrips  Flashes by all pairs of specifications, and flashes that are done again.
%
%   The specifications come from the results at temperature and pressure. A pair that fails at the first three states is
%   taken for one that the package does not solve. Again means: repeated, after another flash
%   or one that fails, in other order, and with a trace in place of nothing. A specification is met to 1e-6 of its
%   size, of which enthalpies, energies and entropies have at least R * T or R; the state may be another that has
%   the same. What is done again is the same to 1e-9, and to the bit if it is repeated.
good = wholeFlashes(s, s.flashes);
good = good(cellfun(@(Z) nnz(Z) > 1 || s.n == 1, {s.flashes(good).Z}));
good = good(evenly(numel(good), 12 - 8 * s.quick));
names = specifications(s);
given = ismember(lower(names), {'temperature', 'pressure'}); % without these a package may search for long
solved = zeros(numel(names));
asked = solved;
failed = cell(numel(names));
for k = good
    flash = s.flashes(k);
    tally = again(s, tally, flash, s.flashes(good(1 + (k == good(1)) * (numel(good) > 1))));
    try
        [values{1:numel(names)}] = capeOpenMultiFlash(s.handle, flash.Z, 'Temperature', flash.T, 'Pressure', ...
            flash.P, 'Unspecified', names);
        values = [values{:}];
    catch
        values = NaN(1, numel(names));
    end
    fraction = strcmpi(names, 'vaporFraction');
    values(fraction & (values <= 0 | values >= 1)) = NaN; % of one phase it tells nothing
    for first = 1:numel(names)
        for second = first + 1:numel(names)
            enough = s.quick && solved(first, second) > 0 && ~any(given([first, second]));
            if enough || (solved(first, second) == 0 && asked(first, second) > 2)
                continue
            end
            [tally, did] = oneTrip(s, tally, flash, names([first, second]), values([first, second]));
            solved(first, second) = solved(first, second) + did;
            asked(first, second) = asked(first, second) + all(isfinite(values([first, second])));
            if ~did && isempty(failed{first, second})
                failed{first, second} = flash;
            end
        end
    end
    clear('values');
end
tally = mergedFindings(tally);
tally.pairs = struct('names', {names}, 'solved', solved, 'asked', asked);
for pair = find(solved > 0 & solved < asked).'
    [first, second] = ind2sub(size(solved), pair);
    tally = checkFound(tally, 'note', sprintf('Flashes by %s and %s fail at %d of %d states', names{first}, ...
        names{second}, asked(pair) - solved(pair), asked(pair)), '', flashLines(s, failed{pair}));
end
end

% The names that flashes take, without those that another reference state of enthalpies and entropies adds.
function names = specifications(s)
names = reshape(s.flashProps, 1, []);
other = regexpi(names, '^(enthalpy|entropy)(F|NF)$', 'tokens', 'once');
names = names(cellfun(@(base) isempty(base) || ~any(strcmpi(names, base{1})), other));
end

function [tally, did] = oneTrip(s, tally, flash, names, given)
did = false;
if any(~isfinite(given))
    return
end
try
    [found{1:4}] = capeOpenMultiFlash(s.handle, flash.Z, names{1}, given(1), names{2}, given(2), 'Unspecified', ...
        [names(:).', {'Temperature', 'Pressure'}]);
catch
    return
end
found = [found{:}];
if any(~isfinite(found))
    return
end
did = true;
sizes = abs(given);
for k = 1:2
    if any(regexpi(names{k}, '^entropy'))
        sizes(k) = sizes(k) + s.R;
    elseif any(regexpi(names{k}, 'energy|enthalpy'))
        sizes(k) = sizes(k) + s.R * flash.T;
    elseif strcmpi(names{k}, 'vaporFraction')
        sizes(k) = 1;
    end
end
at = flashStates(s, flash);
head = [{s.opening; numbersText('X', flash.Z)}
        {sprintf('a = %.17g; b = %.17g;', given)
         sprintf('[c, d] = capeOpenMultiFlash(handle, X, ''%s'', a, ''%s'', b, ''Unspecified'', {''%s'', ''%s''})', ...
             names{[1, 2, 1, 2]}); 'deviation = abs([c - a, d - b])'; sprintf('limit = [%.17g, %.17g]', 1e-6 * sizes)}];
tally = checkCompared(tally, 'failure', sprintf('A flash by %s and %s does not meet them', names{:}), ...
    abs(found(1:2) - given), 1e-6 * sizes, at, @(row) head);
end

function tally = again(s, tally, flash, other)
at = flashStates(s, flash);
ask = @(Z, varargin) resultOf(s, Z, varargin{:});
one = {'Temperature', flash.T, 'Pressure', flash.P};
a = ask(flash.Z, one{:});
b = ask(flash.Z, one{:});
ask(other.Z, 'Temperature', other.T, 'Pressure', other.P);
c = ask(flash.Z, one{:});
d = ask(flash.Z, one{[3, 4, 1, 2]});
try
    capeOpenFlash(s.handle, flash.Z, 'Temperature', -1, 'Pressure', flash.P);
catch
    % as it should be
end
e = ask(flash.Z, one{:});
if s.n > 1
    trace = flash.Z + 1e-13 * (flash.Z == 0);
    g = ask(trace / sum(trace), one{:});
else
    g = a;
end
call = 'capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P)';
first = [stateLines(s, flash.T, flash.P, flash.Z); {['[p1, f1, Y1] = ', call, ';']}];
between = [{numbersText('Z2', other.Z)}
           {sprintf('capeOpenFlash(handle, Z2, ''Temperature'', %.17g, ''Pressure'', %.17g);', other.T, other.P)}];
failing = {'try, capeOpenFlash(handle, X, ''Temperature'', -1, ''Pressure'', P); catch, end'};
second = ['[p2, f2, Y2] = ', call, ';'];
swapped = '[p2, f2, Y2] = capeOpenFlash(handle, X, ''Pressure'', P, ''Temperature'', T);';
traced = 'X = X + 1e-13 * (X == 0); X = X / sum(X);';
tests = {
    'A flash gives another result when it is repeated', b, 0, {second}
    'A flash gives another result after a flash of something else', c, 1e-9, [between; {second}]
    'A flash gives another result with its specifications in other order', d, 1e-9, {swapped}
    'A flash gives another result after one that failed', e, 1e-9, [failing; {second}]
    'A flash gives another result with 1e-13 of a compound in place of nothing', g, 1e-5, {traced; second}
    };
for k = 1:size(tests, 1)
    [what, other, limit, more] = tests{k, :};
    lines = @(row) [first; more; {'deviation = Inf; same = isequal(p1, p2);'
                    'if same, deviation = max(abs([f1(:) - f2(:); Y1(:) - Y2(:)])), end'; sprintf('limit = %g', ...
                        limit)}];
    deviation = Inf;
    if numel(a) == numel(other)
        deviation = max(abs([0; a - other]));
    end
    if any(isnan(a)) || any(isnan(other))
        limit = NaN; % a package may know less of more compounds
    end
    tally = checkCompared(tally, 'failure', what, deviation, limit, at, lines);
end
end

% Fractions and compositions of all phases; of other phases there are more or fewer numbers, or others.
function result = resultOf(s, Z, varargin)
try
    [phases, fractions, X] = capeOpenFlash(s.handle, Z, varargin{:});
    [~, index] = ismember(phases(:), s.phases(:));
    result = [double(index); fractions(:); X(:)];
catch
    result = NaN;
end
end
