% The same commands, made up at random, to the library in this process and to the one under Wine. Every word has to be
% the same, and every number, bit for bit, but for the last digits of what exponentials, logarithms and cube roots have a part in:
% those of the C library and those of Windows are rounded differently now and then, and derivatives by differences and
% searches for a solution make more of that.
%
% Of the client for Octave on Windows, if its folder is told, every answer has to be that of the other client, to the bit.
%
%   octave-cli tests/toolbox/windows/campaign_back_ends.m SEED COMMANDS TOOLBOX VERDANTH [CLIENT]
1;
addpath(fullfile(fileparts(mfilename('fullpath')), '..', 'support'));

function x = one_of(list)
    x = list{randi(numel(list))};
end

function yes = at_odds(n)
    yes = rand() < 1 / n;
end

% A number as users have them, and now and then one that they should not.
function x = number(low, high)
    x = low + (high - low) * rand();
    if at_odds(30)
        x = one_of({0, -1, NaN, Inf, -Inf, 1e300, realmin() / 4, round(x)});
    end
end

function x = column(low, high)
    x = arrayfun(@(k) number(low, high), (1:one_of({1, 1, 1, 2, 5, 20})).');
end

% What is no right argument in most places.
function x = anything()
    x = one_of({[], zeros(0, 1), 'text', '', 'Ж °C 水', {}, {'a', 'b'}, {1, 'a'}, {[], {}}, true, int32(7), uint8([1 2 3]), ...
                single(2.5), 3 + 4i, [1 + 2i, 3], @sin, struct('a', 1), sparse(3), ones(2, 3, 2), int64(-1), 'two words'});
end

function Z = composition(n)
    Z = rand(one_of({1, 1, 1, 3}), n) .* (rand(1, n) < 0.6);
    Z = Z ./ max(sum(Z, 2), 1e-3);
    if at_odds(25)
        Z = one_of({Z(:, 1:end - 1), -Z, Z * 0, Z.', 2 * Z});
    end
end

% An open package: its handle, and what it knows.
function p = opened(manager, name)
    p.handle = Verdanth(3, manager, name);
    p.compounds = numel(Verdanth(7, p.handle));
    p.phases = Verdanth(8, p.handle);
    p.constants = Verdanth(10, p.handle);
    p.temperature = Verdanth(11, p.handle);
    p.pressure = Verdanth(12, p.handle);
    p.single = Verdanth(13, p.handle);
    p.pair = Verdanth(14, p.handle);
    p.flash = Verdanth(15, p.handle);
end

function packages = open_all()
    managers = Verdanth(1);
    packages = {};
    for k = 1:numel(managers)
        for name = Verdanth(2, managers{k}).'
            packages{end + 1} = opened(managers{k}, name{1});
        end
    end
end

function names = some_of(list)
    names = list(randi(numel(list), 1, one_of({1, 1, 2, 3})));
    if at_odds(40)
        names = one_of({'no such property', {'density', 3}, {}, [names, names], strjoin(names, ' ')});
    end
end

% The arguments of a command, the code first, and how many results it is asked for.
function [given, outputs] = command(packages)
    p = one_of(packages);
    h = p.handle;
    T = column(150, 700);
    P = exp(column(log(1e4), log(1e7)));
    Z = composition(p.compounds);
    phase = @() one_of([p.phases; p.phases; {'Vapor'; 'liquid'; 'Solid'}]);
    outputs = 1;
    switch randi(24)
        case 1
            given = {1};
        case 2
            given = {2, one_of({'Verdanth Reference Packages', 'nobody', 'Ж'})};
        case 3
            given = {one_of({6, 7, 8, 10, 11, 12, 13, 14, 15}), h};
        case 4
            given = {9, h, phase()};
        case {5, 6}
            given = {16, h, one_of(p.constants)};
        case 7
            given = {17, one_of({0, 1, 1, true, 'on'})};
            outputs = 0;
        case 8
            given = {18, one_of({'mole', 'mass', 'Mole', 'volume'})};
            outputs = 0;
        case 9
            given = {19, one_of([p.constants; p.single; {'density.Dtemperature'; 'colour'}])};
        case {10, 11}
            given = {20, 1, h, some_of(p.temperature), T};
        case 12
            given = {21, 1, h, some_of([p.pressure; p.temperature]), P};
        case {13, 14, 15, 16}
            given = {22, 1, h, some_of(p.single), T, P, Z, phase()};
        case {17, 18}
            given = {23, 1, h, some_of(p.pair), T, P, Z, Z, phase(), phase()};
        case {19, 20, 21}
            given = [{24, h, Z(1, :)}, specification(p, T(1), P(1)), {one_of({'Unspecified', 'Normal', 'Retrograde', 'odd'})}];
            outputs = 5;
        case {22, 23}
            given = [{25, h, Z}, specification(p, T, P), {'Unspecified', 1, some_of(p.flash)}];
        case 24
            given = {one_of({26, 27, 0, -1, 99, NaN, 3.9, 'x', [], 5, 4, 28.2}), anything()};
    end
    if at_odds(20)
        k = randi(numel(given));
        given{k} = anything();
    end
    if at_odds(40)
        given = given(1:randi(numel(given)));
    end
    if at_odds(60)
        outputs = outputs + 1;
    end
end

function pairs = specification(p, T, P)
    kinds = {{'Temperature', T, 'Pressure', P}, {'Temperature', T, 'Pressure', P}, {'Pressure', P, 'vaporFraction', rand()}, ...
             {'Temperature', T, 'vaporFraction', one_of({0, 1, 0.5})}, {'Pressure', P, 'enthalpy', 1e4 * (rand() - 0.6)}, ...
             {'Pressure', P, 'entropy', 100 * (rand() - 0.6)}, {one_of(p.flash), number(0, 1), one_of(p.flash), number(0, 500)}};
    pairs = one_of(kinds);
end

% Of a call: results, words of an error, what was shown as warnings.
function answer = answered(given, outputs)
    answer = struct('results', {{}}, 'error', '', 'shown', '');
    results = cell(1, outputs);
    try
        shown = evalc('[results{:}] = Verdanth(given{:});');
        answer.shown = regexprep(shown, 'warning: called from\n.*?\n\n', ''); % lines of this script
        answer.results = results;
    catch problem
        answer.error = problem.message;
    end
end

% Handles are drawn at random: which of the packages, in their place.
function answer = without_handles(answer, packages)
    handles = cellfun(@(p) p.handle, packages);
    for k = 1:numel(answer.results)
        if isa(answer.results{k}, 'int32')
            [~, answer.results{k}] = ismember(sort(answer.results{k}), sort(handles));
        end
    end
end

function distance = apart(a, b)
    distance = 0;
    if iscell(a) && isequal(size(a), size(b))
        distance = max([0; cellfun(@apart, a(:), b(:))]);
    elseif isnumeric(a) && isequal(size(a), size(b)) && ~isempty(a)
        a = double(a(:));
        b = double(b(:));
        finite = isfinite(a) & isfinite(b);
        distance = max([0; abs(a(finite) - b(finite)) ./ max(abs(a(finite)), 1e-300)]);
        if ~isequaln(a(~finite), b(~finite))
            distance = Inf;
        end
    elseif ~isequal(a, b)
        distance = Inf;
    end
end

function answers = play(choose, seed, count)
    choose();
    packages = open_all();
    Verdanth(17, 1);
    Verdanth(18, 'mole');
    rand('twister', seed);
    answers = cell(count, 2);
    for k = 1:count
        [given, outputs] = command(packages);
        if numel(given) > 1 && isequal(given{1}, 4)
            given{1} = 6; % packages stay open
        end
        answers{k, 1} = given;
        answers{k, 2} = without_handles(answered(given, outputs), packages);
    end
end

function text = disp_of(given)
    text = strjoin(cellfun(@(x) strtrim(regexprep(disp(x), '\s+', ' ')), given, 'UniformOutput', false), '; ');
end

inputs = argv();
addpath(inputs{3}, inputs{4});
seed = str2double(inputs{1});
count = str2double(inputs{2});
native = @() capeOpenBackend('native');
windows = @() capeOpenBackend('windows');
if numel(inputs) < 5
    sides = {native, windows};
    most = 1e-9; % by which numbers may be apart, of the larger
else
    sides = {windows, @() addpath(inputs{5})};
    most = 0;
end
first = play(sides{1}, seed, count);
second = play(sides{2}, seed, count);
if numel(inputs) > 4
    assert(strcmp(fileparts(which('Verdanth')), inputs{5}), 'the other client was called twice');
end
results = 0;
same = 0;
worst = 0;
wrong = 0;
for k = 1:count
    a = first{k, 2};
    b = second{k, 2};
    results = results + isempty(a.error);
    words = strcmp(a.error, b.error) && strcmp(a.shown, b.shown);
    if words && same_bits(a.results, b.results)
        same = same + 1;
        continue
    end
    distance = apart(a.results, b.results);
    worst = max(worst, distance);
    if ~words || distance > most || most == 0
        wrong = wrong + 1;
        printf('%d: Verdanth(%s): apart %g\n  first:  %s%s\n  second: %s%s\n', k, disp_of(first{k, 1}), distance, ...
               a.error, a.shown, b.error, b.shown);
    end
end
printf(['%d commands, of which %d gave results; %d answers are the same to the last bit, %d with numbers that are apart ' ...
        'by at most %g, %d are others\n'], count, results, same, count - same - wrong, worst, wrong);
exit(wrong > 0);
