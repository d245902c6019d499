% Phase envelopes and diagrams of two compounds, one test each:
% octave-cli tests/toolbox/test_diagrams.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));
set(0, 'DefaultFigureVisible', 'off');

function [h, Z] = opened()
    [manager, package, Z] = natural_gas();
    h = capeOpenCreate(manager, package);
end

function n = phases_at(h, Z, T, P)
    n = numel(capeOpenFlash(h, Z, 'Temperature', T, 'Pressure', P, 'Unspecified'));
end

% The package's own flash, which knows nothing of the curve, finds one phase outside of it and two inside.
function the_flash_finds_two_phases_within_the_envelope_alone(~)
    [h, Z] = opened();
    for mixture = {Z, [0.5 0 0 0 0 0.5 0 0 0 0 0], [0.97 0.01 0.01 0 0 0 0 0 0.01 0 0]}
        [T, P, vaporFraction] = capeOpenPhaseEnvelope(h, mixture{1});
        check(numel(T) > 30 && isequal(size(T), size(P), size(vaporFraction)), '%d points', numel(T));
        check(abs(P(1) / 1e5 - 1) < 1e-12 && abs(P(end) / 1e5 - 1) < 1e-9, 'ends at %g and %g Pa', P(1), P(end));
        check(vaporFraction(1) == 1 && vaporFraction(end) == 0 && sum(diff(vaporFraction) ~= 0) == 1, 'one change');
        [~, top] = max(P); % up to there the curve bounds the two phases to the right
        for k = [1:8:top - 2, top + 2:8:numel(T)]
            outwards = 1 - 2 * (k > top);
            check(phases_at(h, mixture{1}, T(k) + outwards * 0.02, P(k)) == 1, 'outside of point %d: %g K', k, T(k));
            check(phases_at(h, mixture{1}, T(k) - outwards * 0.02, P(k)) == 2, 'inside of point %d: %g K', k, T(k));
        end
    end
    capeOpenRelease(h);
end

% Two phases just below the critical point are nearly the same.
function the_critical_point_is_where_the_phases_become_the_same(~)
    [h, Z] = opened();
    [~, ~, ~, critical] = capeOpenPhaseEnvelope(h, Z);
    [phases, fractions, X] = capeOpenFlash(h, Z, 'Temperature', critical(1), 'Pressure', critical(2) - 0.1e5, 'Unspecified');
    check(numel(phases) == 2, '%d phases', numel(phases));
    check(max(abs(diff(X))) < 0.08, 'compositions differ by %g', max(abs(diff(X))));
    check(phases_at(h, Z, critical(1), critical(2) + 0.1e5) == 1, 'two phases above it');
    capeOpenRelease(h);
end

% Of close-boiling compounds all ratios are near 1, and not just around the critical point; those of ideal mixtures have
% none, and their bubble points are found from below.
function envelopes_of_narrow_and_of_ideal_mixtures_are_found(~)
    manager = natural_gas();
    h = capeOpenCreate(manager, 'Aromatics');
    names = capeOpenCompoundList(h);
    for mixture = {{'o-xylene', 'm-xylene', 'p-xylene', 'ethylbenzene'}, {'benzene', 'toluene'}, {'benzene', 'n-octane'}}
        Z = double(ismember(names, mixture{1})).' / numel(mixture{1});
        [T, P, vaporFraction, critical] = capeOpenPhaseEnvelope(h, Z);
        constants = capeOpenConstant(h, 'criticalTemperature');
        of_mixture = constants(Z > 0);
        check(critical(1) > min(of_mixture) - 10 && critical(1) < max(of_mixture) + 10, 'critical at %g K', critical(1));
        check(abs(P(end) / 1e5 - 1) < 1e-6 && vaporFraction(end) == 0, 'it ends at %g Pa', P(end));
        for k = find(P < 0.7 * critical(2))(1:8:end).' % above, the lines are too close for this
            outwards = 2 * vaporFraction(k) - 1;
            check(phases_at(h, Z, T(k) + outwards * 0.01, P(k)) == 1, 'outside of point %d: %g K', k, T(k));
            check(phases_at(h, Z, T(k) - outwards * 0.01, P(k)) == 2, 'inside of point %d: %g K', k, T(k));
        end
    end
    capeOpenRelease(h);
    h = capeOpenCreate(manager, 'Water and light alcohols');
    Z = double(ismember(capeOpenCompoundList(h), {'water', 'ethanol'})).' / 2;
    [T, P, vaporFraction] = capeOpenPhaseEnvelope(h, Z);
    check(vaporFraction(1) == 1 && vaporFraction(end) == 0 && abs(P(end) / 1e5 - 1) < 1e-6, 'it ends at %g Pa', P(end));
    check(phases_at(h, Z, T(1) - 0.01, P(1)) == 2 && phases_at(h, Z, T(1) + 0.01, P(1)) == 1, 'dew point');
    check(phases_at(h, Z, T(end) - 0.01, P(end)) == 1 && phases_at(h, Z, T(end) + 0.01, P(end)) == 2, 'bubble point');
    capeOpenRelease(h);
end

% Fractions of benzene in boiling liquid and vapor at one atmosphere: Geankoplis, Transport Processes and Unit
% Operations, table 11.1-1.
function benzene_and_toluene_boil_as_measured(~)
    h = capeOpenCreate(natural_gas(), 'Aromatics');
    [x, T, y] = capeOpenTxy(h, {'benzene', 'toluene'}, 101325);
    for row = [85 0.780 0.900; 90 0.581 0.777; 95 0.411 0.632; 100 0.258 0.456; 105 0.130 0.262].'
        liquid = interp1(T, x, row(1) + 273.15);
        vapor = interp1(T, y, row(1) + 273.15);
        check(max(abs([liquid; vapor] - row(2:3))) < 0.02, '%g degrees: %.3f, %.3f', row(1), liquid, vapor);
    end
    capeOpenRelease(h);
end

function an_envelope_starts_where_it_is_told(~)
    [h, Z] = opened();
    [~, P] = capeOpenPhaseEnvelope(h, Z, 10e5);
    check(all(abs(P([1 end]) / 10e5 - 1) < 1e-9) && min(P) > 9.9e5, 'from %g to %g', P(1), P(end));
    capeOpenRelease(h);
end

% Numbers of another class are the same numbers.
function diagrams_are_calculated_in_double(~)
    [h, Z] = opened();
    two = {'propane', 'n-pentane'};
    for as = {@single, @int32}
        check_same(@(as) capeOpenPhaseEnvelope(h, Z, as(1e5)), 6, as{1});
        check_same(@(as) capeOpenPh(h, Z, as(2e5), as([200 260]), []), 5, as{1});
        check_same(@(as) capeOpenTs(h, Z, as(2e5), as([5e5 40e5]), []), 5, as{1});
        check_same(@(as) capeOpenPxy(h, two, as(320)), 4, as{1});
        check_same(@(as) capeOpenTxy(h, two, as(5e5)), 4, as{1});
    end
    for as = {@int32, @sparse}
        check_same(@(as) capeOpenPhaseEnvelope(h, as(round(100 * Z)), 1e5), 6, as{1});
    end
    check_same(@(as) capeOpenPhaseEnvelope(h, Z, 1e5, as([0.25 0.5])), 6, @single);
    check_same(@(as) capeOpenPh(h, Z, 1e5, 260, as(0.5)), 5, @single);
    check_same(@(as) capeOpenTs(h, Z, 1e5, 5e5, as(0.5)), 5, @single);
    capeOpenRelease(h);
end

function check_same(diagram, outputs, as)
    [expected{1:outputs}] = diagram(@double);
    [found{1:outputs}] = diagram(as);
    check(isequaln(expected, found), '%s with %s', func2str(diagram), func2str(as));
    numbers = found(~cellfun(@iscell, found));
    check(all(cellfun(@(values) isa(values, 'double'), numbers)), '%s gives other classes', func2str(diagram));
end

function a_composition_may_be_given_by_names(~)
    [h, Z] = opened();
    names = capeOpenCompoundList(h);
    present = find(Z > 0);
    given = {names(present), Z(present)};
    [T, P] = capeOpenPhaseEnvelope(h, Z);
    [T2, P2] = capeOpenPhaseEnvelope(h, given);
    check(isequal({T, P}, {T2, P2}), 'envelope');
    one = capeOpenPh(h, Z);
    two = capeOpenPh(h, given);
    check(isequaln(one, two), 'pressure and enthalpy');
    one = capeOpenTs(h, Z);
    two = capeOpenTs(h, given);
    check(isequaln(one, two), 'temperature and entropy');
    capeOpenRelease(h);
end

function the_basis_counts_and_stays(~)
    [h, Z] = opened();
    weights = capeOpenConstant(h, 'molecularWeight');
    [T, P, ~, critical] = capeOpenPhaseEnvelope(h, Z);
    [x, level, y] = capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    capeOpenBasis('mass');
    parts = Z .* weights / sum(Z .* weights);
    [T2, P2, ~, critical2, ~, quality] = capeOpenPhaseEnvelope(h, 7 * parts, 1e5, 0.5);
    check(max(abs(T2([1 end]) - T([1 end]))) < 1e-6 && max(abs(critical2 ./ critical - 1)) < 1e-3, 'another envelope');
    row = quality{1}(round(end / 3), :);
    found = capeOpenMultiFlash(h, parts, 'Temperature', row(1), 'Pressure', row(2), 'Unspecified', 'vaporFraction');
    check(abs(found - 0.5) < 1e-5, 'half of the mass would be vapor, but %g is', found);
    capeOpenPhaseEnvelope(h, parts);
    heading = get(get(gca(), 'Title'), 'String');
    close();
    check(strncmp(heading, sprintf('%.3g methane, ', parts(1)), 15), 'title: %s', heading);
    [x2, level2, y2] = capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    to_mass = @(x) x * weights(3) ./ (x * weights(3) + (1 - x) * weights(6));
    check(max(abs(x2 - to_mass(x))) < 1e-12 && max(abs(y2 - to_mass(y))) < 1e-12 && isequal(level, level2), 'another diagram');
    check(strcmp(capeOpenPropUnit('density'), 'kg / m3'), 'the basis was changed');
    message_of(@() capeOpenPxy(h, {'propane', 'n-pentane'}, 900));
    check(strcmp(capeOpenPropUnit('density'), 'kg / m3'), 'the basis was changed by an error');
    capeOpenRelease(h);
end

% Boiling points at 101,325 Pa and vapor pressures at 300 K of the NIST Chemistry WebBook; the equation of state is good
% for half a percent of the temperature and two percent of the pressure.
function the_ends_are_the_pure_compounds(~)
    h = opened();
    [x, T, y] = capeOpenTxy(h, {'propane', 'n-pentane'}, 101325);
    check(isequal(x([1 end]), [0; 1]) && all(abs(y([1 end]) - [0; 1]) < 1e-9), 'ends');
    check(all(abs(T([1 end]) ./ [309.2; 231.0] - 1) < 0.005), 'boiling points %g and %g', T(1), T(end));
    [x, P] = capeOpenPxy(h, {'n-butane', 'propane'}, 300);
    check(all(abs(P([1 end]) ./ [9.98e5; 2.58e5] - 1) < 0.02), 'vapor pressures %g and %g', P(1), P(end));
    capeOpenRelease(h);
end

% What the package's own flash splits a mixture between the lines into are the two ends of a tie line.
function the_flash_gives_the_same_tie_lines(~)
    h = opened();
    cases = {'propane', 'n-pentane', 320; 'methane', 'n-butane', 300; 'carbon dioxide', 'ethane', 263.15; 'ethane', 'isopentane', 368.28};
    for k = 1:size(cases, 1)
        pair = [find(strcmp(capeOpenCompoundList(h), cases{k, 1})), find(strcmp(capeOpenCompoundList(h), cases{k, 2}))];
        [x, P, y] = capeOpenPxy(h, cases(k, 1:2), cases{k, 3});
        check_tie_lines(h, pair, x, cases{k, 3} * ones(size(P)), P, y);
    end
    [x, T, y] = capeOpenTxy(h, {'propane', 'n-pentane'}, 5e5);
    check_tie_lines(h, [3 6], x, T, 5e5 * ones(size(T)), y);
    [x, T, y] = capeOpenTxy(h, {'carbon dioxide', 'ethane'}, 20e5);
    check_tie_lines(h, [10 2], x, T, 20e5 * ones(size(T)), y);
    capeOpenRelease(h);
end

function check_tie_lines(h, pair, x, T, P, y)
    checked = 0;
    for k = find(abs(x - y) > 0.02).'
        Z = zeros(1, 11);
        Z(pair) = [x(k) + y(k), 2 - x(k) - y(k)] / 2;
        [phases, ~, X] = capeOpenFlash(h, Z, 'Temperature', T(k), 'Pressure', P(k), 'Unspecified');
        check(isequal(phases(:).', {'Vapor', 'Liquid'}), 'one phase at %g K, %g Pa', T(k), P(k));
        check(max(abs(X(:, pair(1)) - [y(k); x(k)])) < 1e-6, 'another tie line at %g K, %g Pa', T(k), P(k));
        checked = checked + 1;
    end
    check(checked > 15, '%d tie lines', checked);
end

% Methane is above its critical temperature: the lines meet in the critical point of the mixture.
function lines_end_in_the_critical_point(~)
    h = opened();
    [x, P, y] = capeOpenPxy(h, {'methane', 'n-butane'}, 300);
    check(x(1) == 0 && x(end) == y(end) && x(end) > 0.7 && x(end) < 0.8, 'it ends at %g and %g', x(end), y(end));
    check(P(end) == max(P), 'not the highest pressure');
    [x2, P2, y2] = capeOpenPxy(h, {'n-butane', 'methane'}, 300);
    check(x2(end) == 1 && abs(x2(1) - (1 - x(end))) < 1e-3 && abs(P2(1) / P(end) - 1) < 1e-3, 'the other way round');
    capeOpenRelease(h);
end

% Carbon dioxide and ethane form an azeotrope; the lines touch there and go on.
function an_azeotrope_is_passed(~)
    h = opened();
    [x, P, y] = capeOpenPxy(h, {'carbon dioxide', 'ethane'}, 263.15);
    check(isequal(x([1 end]), [0; 1]) && y(3) > x(3) && y(end - 2) < x(end - 2), 'no azeotrope');
    [~, top] = max(P);
    check(abs(x(top) - y(top)) < 0.02, 'the lines do not touch at the highest pressure');
    capeOpenRelease(h);
end

% Without results alone.
function lines_are_drawn(~)
    [h, Z] = opened();
    T = capeOpenPhaseEnvelope(h, Z);
    [~, P] = capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    [~, temperatures] = capeOpenTxy(h, {'propane', 'n-pentane'}, 5e5);
    check(isempty(get(0, 'CurrentFigure')), 'a figure came with results');
    capeOpenPhaseEnvelope(h, Z, [], [0.5, 0.9]);
    check_drawn(4, 'temperature / K', 'pressure / bar', '0.8 methane, 0.08 ethane, ... (Natural gas)');
    drawn = max(cellfun(@(x) max(x), get(findobj(gca(), 'Type', 'line'), 'XData')));
    check(drawn >= max(T) && drawn < max(T) + 1, 'drawn to %g', drawn);
    figure();
    capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    check_drawn(2, 'mole fraction of propane', 'pressure / bar', 'propane and n-pentane at 320 K');
    check_extremes('YData', P / 1e5);
    figure();
    capeOpenBasis('mass');
    capeOpenTxy(h, {'propane', 'n-pentane'}, 5e5);
    capeOpenBasis('mole');
    check_drawn(2, 'mass fraction of propane', 'temperature / K', 'propane and n-pentane at 5 bar');
    check_extremes('YData', temperatures);
    capeOpenRelease(h);
end

% They are called as the package calls them.
function two_compounds_are_found_as_in_a_composition(~)
    h = opened();
    [x, P, y] = capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    for names = {{'PROPANE', 'n_pentane'}, {'C3H8', '109-66-0'}}
        [x2, P2, y2] = capeOpenPxy(h, names{1}, 320);
        check(isequal({x, P, y}, {x2, P2, y2}), '%s is another compound', names{1}{2});
        capeOpenPxy(h, names{1}, 320);
        check_drawn(2, 'mole fraction of propane', 'pressure / bar', 'propane and n-pentane at 320 K');
    end
    capeOpenTxy(h, {'C3H8', 'n_pentane'}, 5e5);
    check_drawn(2, 'mole fraction of propane', 'temperature / K', 'propane and n-pentane at 5 bar');
    capeOpenRelease(h);
end

% The dew points of water are apart from the bubble points; the row of NaN between them is no second liquid.
function gaps_are_no_kind_of_points(~)
    [h, Z] = opened_of_family('hydrocarbon_water', 1);
    [~, P, vapor] = capeOpenPh(h, Z, 1e5, 400, 0.5);
    check(any(isnan(P)) && ~any(isnan(vapor) & ~isnan(P)), 'another mixture is needed');
    capeOpenPh(h, Z, 1e5, 400, 0.5);
    names = get(findobj(gcf(), 'Type', 'axes', 'Tag', 'legend'), 'String');
    check(isequal(names(:).', {'dew points', 'bubble points', 'isotherms', 'vapor fractions'}), '%s', strjoin(names, ', '));
    capeOpenRelease(h);
end

function check_drawn(lines, across, up, heading)
    axes = gca();
    found = numel(findobj(axes, 'Type', 'line'));
    check(found == lines, '%d lines', found);
    check(strcmp(get(get(axes, 'XLabel'), 'String'), across), 'across: %s', get(get(axes, 'XLabel'), 'String'));
    check(strcmp(get(get(axes, 'YLabel'), 'String'), up), 'up: %s', get(get(axes, 'YLabel'), 'String'));
    text = get(get(axes, 'Title'), 'String');
    check(strncmp(text, heading, numel(heading)) && ~isempty(strfind(text, '(Natural gas)')), 'title: %s', text);
end

function check_extremes(data, values)
    drawn = get(findobj(gca(), 'Type', 'line'), data);
    drawn = [drawn{:}];
    check(abs(max(drawn) / max(values) - 1) < 1e-9 && abs(min(drawn) / min(values) - 1) < 1e-9, ...
          'drawn from %g to %g', min(drawn), max(drawn));
end

function Z = mixture(h, varargin)
    Z = zeros(1, numel(capeOpenCompoundList(h)));
    for k = 1:2:numel(varargin)
        Z(strcmp(capeOpenCompoundList(h), varargin{k})) = varargin{k + 1};
    end
end

% A few of each family; campaign_envelopes.m takes more of them. As many of them as today arrive at the bubble points of
% 1 bar through a critical point and are complete; the flash answers as many of the points.
function envelopes_of_many_mixtures_are_those_of_the_flash(~)
    check_family('natural_gas', 1:4, 4, 3, 8);
    check_family('carbon_dioxide', 1:4, 1, 0, 0);
    check_family('reservoir', 3:6, 3, 0, 0);
    check_family('refrigerants', 1:4, 4, 4, 0);
    check_family('sour', [1:4, 6], 4, 1, 46);
    check_family('hydrocarbon_water', [1, 3, 4, 6], 1, 0, 7);
    check_family('alcohol_water', 1:2, 0, 0, 0);
end

function check_family(family, seeds, arriving, complete, missed)
    counts = zeros(1, 3);
    capeOpenWarnings(0);
    for seed = seeds
        [package, Z] = mixture_of_family(family, seed);
        h = capeOpenCreate('Verdanth Reference Packages', package);
        found = envelope_against_flashes(h, Z);
        check(found.sound, '%s %d: the critical point is none of the flash', family, seed);
        check(found.distance <= 1e-6, '%s %d is off by %g', family, seed, found.distance);
        check(found.complete || ~isempty(found.reason), '%s %d has an open end that nothing tells of', family, seed);
        counts = counts + [found.arrives, found.complete, found.missed];
        capeOpenRelease(h);
    end
    check(counts(1) >= arriving, '%s: %d arrive', family, counts(1));
    check(counts(2) >= complete, '%s: %d complete', family, counts(2));
    check(counts(3) <= missed, '%s: %d points that the flash does not answer', family, counts(3));
end

% Of equal parts of n-butane and water the water condenses first, at the temperature where its vapor pressure is half of
% the whole: 354.5 K by the steam tables. Both liquids boil together where both vapor pressures make the whole: 272 K.
function the_water_condenses_first(~)
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    lastwarn('');
    [T, P, vapor, critical] = capeOpenPhaseEnvelope(h, mixture(h, 'n-butane', 0.5, 'water', 0.5));
    check(abs(T(1) - 354.5) < 2.5 && abs(P(1) / 1e5 - 1) < 1e-9 && vapor(1) == 1, 'it condenses at %g K', T(1));
    check(abs(T(end) - 272) < 1 && abs(P(end) / 1e5 - 1) < 1e-9 && vapor(end) == 0, 'it boils at %g K', T(end));
    check(all(isnan(critical)), 'a critical point at %g K', critical(1));
    check(strncmp(lastwarn(), 'The phase envelope is not complete: the dew points end at', 57), 'warned: %s', lastwarn());
    capeOpenRelease(h);
end

% Where two curves come near to each other is no critical point; carbon dioxide and n-decane in these parts have dew
% points up to the highest pressure and a critical point of two dense phases far below 340 K.
function a_critical_point_is_not_made_up(~)
    h = capeOpenCreate(natural_gas(), 'All compounds (Peng-Robinson)');
    Z = mixture(h, 'carbon dioxide', 0.9, 'n-decane', 0.1);
    [~, ~, ~, critical] = capeOpenPhaseEnvelope(h, Z);
    check(~(critical(1) > 335 && critical(1) < 345), 'a critical point at %g K', critical(1));
    X = cell(1, 2);
    for k = 1:2
        [phases, ~, X{k}] = capeOpenFlash(h, Z, 'Temperature', critical(1) - [1 0.1](k), 'Pressure', critical(2), 'Unspecified');
        check(numel(phases) == 2, '%d phases below the critical temperature', numel(phases));
    end
    check(max(abs(diff(X{2}))) < 0.6 * max(abs(diff(X{1}))), 'the phases do not become the same');
    capeOpenRelease(h);
end

function what_is_wrong_with_an_envelope_is_said(~)
    h = capeOpenCreate(natural_gas(), 'Water and light alcohols');
    lastwarn('');
    [~, ~, ~, critical] = capeOpenPhaseEnvelope(h, mixture(h, 'ethanol', 0.5, 'water', 0.5));
    check(all(isnan(critical)), 'a critical point of a model that has none, at %g K', critical(1));
    check(strncmp(lastwarn(), 'The phase envelope is not complete: the dew points end at', 57), 'warned: %s', lastwarn());
    capeOpenRelease(h);
end

function [h, Z] = opened_of_family(family, seed)
    [package, Z] = mixture_of_family(family, seed);
    h = capeOpenCreate('Verdanth Reference Packages', package);
end

% Blocks of rows that rows of NaN end.
function parts = parted(rows)
    ends = [0; find(isnan(rows(:, 1)))];
    parts = arrayfun(@(k) rows(ends(k) + 1:ends(k + 1) - 1, :), 1:numel(ends) - 1, 'UniformOutput', false);
end

% Both of these have a loop inside that begins and ends in the same point.
function lines_inside_come_once(~)
    for mixture = {'reservoir', 3; 'natural_gas', 5}.'
        [h, Z] = opened_of_family(mixture{:});
        [~, ~, ~, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        lines = parted(threePhases);
        ends = cellfun(@(line) line([1 end], :), lines, 'UniformOutput', false);
        ends = vertcat(ends{:});
        check(~isempty(ends), 'no lines inside of %s %d', mixture{:});
        for k = 1:rows(ends)
            apart = max(abs(ends([1:k - 1, k + 1:end], :) ./ ends(k, :) - 1), [], 2);
            check(all(apart > 1e-6), '%s %d: two lines at %g K', mixture{:}, ends(k, 1));
        end
        capeOpenRelease(h);
    end
end

% With carbon dioxide and lighter compounds the flash misses the second liquid of some points.
% Where vapor and liquid become the same beside water, one line goes over into the other.
function lines_of_three_phases_leave_no_gap(~)
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    Z = mixture(h, 'methane', 0.7, 'propane', 0.15, 'n-hexane', 0.1, 'water', 0.05);
    [T, P, vapor, ~, inside] = capeOpenPhaseEnvelope(h, Z);
    bubbles = sortrows([T(vapor == 0), P(vapor == 0)]);
    check(any(all(abs(inside ./ bubbles(end, :) - 1) < 1e-9, 2)), 'the bubble points end at %g K and %g Pa', bubbles(end, :));
    capeOpenRelease(h);
end

function ends_of_lines_inside_are_told(~)
    for mixture = {'carbon_dioxide', 2, 'the points where a third phase appears end at'
                   'carbon_dioxide', 4, 'the bubble points end at 151.1 K'}.'
        [h, Z] = opened_of_family(mixture{1:2});
        lastwarn('');
        [~, ~, ~, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        check(~isempty(strfind(lastwarn(), mixture{3})), 'told: %s', lastwarn());
        check(all(cellfun(@rows, parted(threePhases)) > 1), 'lines of one point');
        capeOpenRelease(h);
    end
end

% A step along a line is short, between lines that do not join stands a row of NaN.
function lines_that_do_not_join_are_parted(~)
    for mixture = {'carbon_dioxide', 3; 'reservoir', 3; 'hydrocarbon_water', 2}.'
        [h, Z] = opened_of_family(mixture{:});
        [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
        steps = abs(diff(log([T, P])));
        [most, at] = max(steps);
        check(all(most < [0.11, 1.01]), '%s: from %g K, %g Pa to %g K, %g Pa', mixture{1}, T(at(1)), P(at(1)), ...
              T(at(1) + 1), P(at(1) + 1));
        check(any(isnan(T)) && isequal(isnan(T), isnan(P)) && all(isnan(vapor(isnan(T)))), 'rows of NaN');
        check(~any(isnan(T([1 end]))) && ~any(isnan(T(1:end - 1)) & isnan(T(2:end))), 'more rows of NaN than needed');
        capeOpenRelease(h);
    end
end

% Where flashes fail from 20 to 30 bar.
function where_the_flash_fails_is_told(~)
    global failing
    failing = [20e5 30e5];
    [h, Z] = opened();
    [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
    whole = capeOpenPh(h, double(1:11 == 3), 1e5, 300, []);
    among = find(P > failing(1) & P < failing(2));
    addpath(fullfile(fileparts(mfilename('fullpath')), 'failing_flash'));
    lastwarn('');
    capeOpenPhaseEnvelope(h, Z);
    expected = sprintf('the package''s flash fails at %d of the points, first at %.5g K and %.5g bar', numel(among), ...
                       T(among(1)), P(among(1)) / 1e5);
    check(~isempty(strfind(lastwarn(), expected)), 'not "%s", but "%s"', expected, lastwarn());
    lastwarn('');
    [enthalpy, P, vapor] = capeOpenPh(h, double(1:11 == 3), 1e5, 300, []);
    told = regexp(lastwarn(), ['^The phase envelope is not complete: the package''s flash fails at (\d+) of the dew points, ' ...
                               'first at (\S+) bar; the package''s flash fails at (\d+) of the bubble points, first at '], 'tokens');
    check(~isempty(told), 'told: %s', lastwarn());
    told = str2double(told{1});
    check(told(1) > 2 && told(1) == told(3) && told(2) > 20 && told(2) < 30, 'told: %s', lastwarn());
    check(numel(enthalpy) == numel(whole) && sum(isnan(enthalpy)) == told(1) + told(3), '%d rows of NaN', sum(isnan(enthalpy)));
    check(isequal(isnan(enthalpy), isnan(P), isnan(vapor)) && isequal(enthalpy(~isnan(P)), whole(~isnan(P))), 'other rows');
    capeOpenRelease(h);
end

% Two liquids that are nearly the same are none the less liquids.
function a_second_liquid_is_no_dew_point(~)
    [h, Z] = opened_of_family('reservoir', 109);
    [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
    told = 0;
    for k = find(vapor == 1).'
        for side = [-1e-4, 1e-4]
            labels = capeOpenFlash(h, Z, 'Temperature', T(k) * (1 + side), 'Pressure', P(k), 'Unspecified');
            told = told + (numel(labels) > 1);
            check(numel(labels) == 1 || any(strcmp(labels, 'Vapor')), 'two liquids at %g K, %g Pa', T(k), P(k));
        end
    end
    check(told > 10, '%d points with two phases beside them', told);
    capeOpenRelease(h);
end

% Where the flash of mixture and new phase together fails, that of the mixture may still see that it is no boundary.
function no_point_lies_where_vapor_and_liquid_are(~)
    [h, Z] = opened_of_family('sour', 19);
    [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
    check(sum(~isnan(vapor)) > 30, '%d points', sum(~isnan(vapor)));
    for k = find(~isnan(vapor)).'
        try
            [labels, fractions] = capeOpenFlash(h, Z, 'Temperature', T(k), 'Pressure', P(k), 'Unspecified');
        catch
            continue % is told
        end
        share = sum(fractions(strcmp(labels, 'Vapor')));
        check(share < 1e-3 || share > 1 - 1e-3, '%g is vapor at %g K and %g Pa', share, T(k), P(k));
    end
    for line = parted([T, P, vapor; NaN, NaN, NaN]) % where branches join, both have the point
        ends = line{1}([1, 2, end - 1, end], :);
        check(~isequal(ends(1, :), ends(2, :)) && ~isequal(ends(3, :), ends(4, :)), 'an end of the line at %g K comes twice', ends(1));
    end
    capeOpenRelease(h);
end

% To one side of a line inside the flash finds a phase more than to the other side. Those of a second liquid have one and
% two phases beside them.
function a_third_phase_and_a_second_liquid_appear_to_the_flash(~)
    for mixture = {'hydrocarbon_water', 1; 'carbon_dioxide', 1; 'reservoir', 5; 'sour', 8}.'
        [h, Z] = opened_of_family(mixture{:});
        [T, P, vapor, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        points = threePhases(~isnan(threePhases(:, 1)), :);
        check(rows(points) > 10, '%d points inside', rows(points));
        beside = @(T, P) sort([phases_at(h, Z, T - 0.05, P), phases_at(h, Z, T + 0.05, P)]);
        for row = points(3:4:end - 2, :).'
            check(isequal(beside(row(1), row(2)), [2 3]), '%s: %g K, %g Pa inside', mixture{1}, row);
        end
        liquids = find(isnan(vapor) & ~isnan(T));
        check(strcmp(mixture{1}, 'hydrocarbon_water') || numel(liquids) > 5, '%d points of two liquids', numel(liquids));
        for k = liquids(3:4:end - 2).'
            check(isequal(beside(T(k), P(k)), [1 2]), '%s: %g K, %g Pa', mixture{1}, T(k), P(k));
            phases = capeOpenFlash(h, Z, 'Temperature', T(k) - 0.05, 'Pressure', P(k), 'Unspecified');
            check(~any(strcmp(phases, 'Vapor')), '%s: a vapor at %g K, %g Pa', mixture{1}, T(k), P(k));
        end
        capeOpenRelease(h);
    end
end

% Where the package has no derivatives, differences do in their place.
function lines_are_the_same_without_derivatives(~)
    [h, Z] = opened();
    cases = {@() capeOpenPhaseEnvelope(h, Z); @() capeOpenPhaseEnvelope(h, [0.5 0 0 0 0 0.5 0 0 0 0 0])
             @() capeOpenPxy(h, {'methane', 'n-butane'}, 300); @() capeOpenTxy(h, {'carbon dioxide', 'ethane'}, 20e5)};
    expected = cell(numel(cases), 3);
    for k = 1:numel(cases)
        [expected{k, :}] = cases{k}();
    end
    addpath(fullfile(fileparts(mfilename('fullpath')), 'no_derivatives'));
    check(~any(strcmp(capeOpenSinglePhasePropList(h), 'logFugacityCoefficient.Dmoles')), 'it has derivatives');
    found = cell(1, 3);
    for k = 1:numel(cases)
        [found{:}] = cases{k}();
        check(isequal(cellfun(@size, found, 'UniformOutput', false), cellfun(@size, expected(k, :), 'UniformOutput', false)), ...
              '%s: other points', func2str(cases{k}));
        off = cellfun(@(one, other) max(abs(one - other) ./ max(1, abs(other))), found, expected(k, :));
        check(all(off < 1e-6), '%s: off by %g, %g and %g', func2str(cases{k}), off);
    end
    capeOpenRelease(h);
end

% One flash on each line of constant vapor fraction.
function lines_of_vapor_fractions_are_those_of_the_flash(~)
    [h, Z] = opened();
    [~, ~, ~, ~, threePhases, quality] = capeOpenPhaseEnvelope(h, Z, 1e5, [0.5 0.9]);
    check(isempty(threePhases) && numel(quality) == 2, 'other results');
    for k = 1:2
        row = quality{k}(round(end / 3), :);
        found = capeOpenMultiFlash(h, Z, 'Temperature', row(1), 'Pressure', row(2), 'Unspecified', 'vaporFraction');
        check(abs(found - [0.5 0.9](k)) < 1e-5, 'vapor fraction %g', found);
    end
    capeOpenRelease(h);
end

% Of n-pentane with next to nothing else no property is known, so that the lines begin and end at propane.
function a_compound_without_a_boiling_point_is_told(~)
    global failing
    h = opened();
    failing = find(strcmp(capeOpenCompoundList(h), 'n-pentane'));
    addpath(fullfile(fileparts(mfilename('fullpath')), 'failing_compound'));
    for names = {{'propane', 'n-pentane'}, {'n-pentane', 'propane'}}
        lastwarn('');
        x = capeOpenPxy(h, names{1}, 320);
        parts = [x(1), 1 - x(end)];
        if strcmp(names{1}{1}, 'n-pentane')
            parts = fliplr(parts);
        end
        check(parts(2) == 0 && parts(1) > 0 && parts(1) < 0.05, 'from %g to %g', x(1), x(end));
        told = regexp(lastwarn(), ['^The phase diagram is not complete: the lines end at \S+ bar and a fraction of \S+ of ' ...
                                   '\S+: no further point was found; no line was found that begins with n-pentane$']);
        check(~isempty(told), 'told: %s', lastwarn());
    end
    capeOpenRelease(h);
end

% Water takes up so little of another compound that its fraction is a rounded 1, and still the vapor is not water alone.
function next_to_nothing_of_a_compound_is_some(~)
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    for other = {'n-hexane', 'methane'}
        [x, T, y] = capeOpenTxy(h, {'water', other{1}}, 1e5);
        check(all(T(x == 1 & y == 1) > 373), '%s: water alone boils at %g K', other{1}, min(T(x == 1 & y == 1)));
        rows = find(x == 1 & y < 1).';
        check(~isempty(rows), '%s: another mixture is needed', other{1});
        for k = rows
            part = (1 + y(k)) / 2;
            [labels, ~, X] = capeOpenFlash(h, mixture(h, 'water', part, other{1}, 1 - part), 'Temperature', T(k) + 1e-3, ...
                                           'Pressure', 1e5, 'Unspecified');
            vapor = X(strcmp(labels, 'Vapor'), strcmp(capeOpenCompoundList(h), 'water'));
            check(abs(vapor - y(k)) < 1e-4, '%s: at %g K %g, not %g', other{1}, T(k), y(k), vapor);
        end
    end
    capeOpenRelease(h);
end

% Methane and ethane at 60 bar: neither boils alone, but mixtures do, and both lines meet at two critical points.
function a_closed_loop_has_two_critical_points(~)
    h = opened();
    [x, T, y] = capeOpenTxy(h, {'methane', 'ethane'}, 60e5);
    check(x(1) == y(1) && x(end) == y(end) && x(1) > 0.1 && x(end) < 0.95, 'from %g to %g', x(1), x(end));
    check(all(diff(T) < 0) && all(y(2:end - 1) > x(2:end - 1)), 'the lines cross');
    check_tie_lines(h, [1 2], x, T, 60e5 * ones(size(T)), y);
    capeOpenRelease(h);
end

% 1-Butanol and water boil as two liquids at 365.9 K and 1 atm, the vapor has 0.247 of the alcohol (Gmehling, Azeotropic
% Data). n-Butane and water boil where their vapor pressures make up the whole.
function two_liquids_have_one_vapor(~)
    h = capeOpenCreate(natural_gas(), 'Water and light alcohols');
    [x, T, y, liquids] = capeOpenTxy(h, {'1-butanol', 'water'}, 101325);
    k = find(diff(T) == 0 | abs(diff(T)) < 1e-6 & diff(x) > 0.1);
    check(numel(k) == 1 && abs(T(k) - 365.9) < 0.7 && abs(y(k) - 0.247) < 0.02, 'at %g K with %g', T(k), y(k));
    check(abs(y(k) - y(k + 1)) < 1e-8 && x(k) < 0.03 && x(k + 1) > 0.35, 'liquids with %g and %g', x(k), x(k + 1));
    check(abs(max(liquids(:, 2)) - T(k)) < 1e-6 && size(liquids, 1) > 5, 'two liquids up to %g K', max(liquids(:, 2)));
    middle = liquids(round(end / 2), :);
    Z = mixture(h, '1-butanol', mean(middle([1 3])), 'water', 1 - mean(middle([1 3])));
    [phases, ~, X] = capeOpenFlash(h, Z, 'Temperature', middle(2), 'Pressure', 101325, 'Unspecified');
    found = sort(X(:, strcmp(capeOpenCompoundList(h), '1-butanol'))).';
    check(isequal(sort(phases(:).'), {'Liquid', 'Liquid2'}) && max(abs(found - sort(middle([1 3])))) < 1e-6, 'other liquids');
    capeOpenRelease(h);
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    [x, P, y] = capeOpenPxy(h, {'n-butane', 'water'}, 350);
    k = find(abs(diff(P)) < 1 & diff(x) > 0.1);
    check(numel(k) == 1 && abs(P(k) / (9.45e5 + 0.41e5) - 1) < 0.02 && abs(y(k) - 0.96) < 0.01, 'at %g Pa', P(k));
    capeOpenRelease(h);
end

% Vapor in equilibrium with ethanol and water at one atmosphere (Perry's Handbook, 13-1), and one azeotrope alone.
function ethanol_and_water_have_one_azeotrope(~)
    h = capeOpenCreate(natural_gas(), 'Water and light alcohols');
    [x, T, y] = capeOpenTxy(h, {'ethanol', 'water'}, 101325);
    check(all(diff(x) > 0) && all(diff(y) > 0) && sum(diff(sign(y(2:end - 1) - x(2:end - 1))) ~= 0) == 1, 'a loop');
    for row = [0.1238 0.4704; 0.3273 0.5826; 0.6763 0.7385].'
        check(abs(interp1(x, y, row(1)) - row(2)) < 0.02, 'y = %g', interp1(x, y, row(1)));
    end
    check(abs(min(T) - 351.3) < 0.5, 'it boils at %g K', min(T));
    capeOpenRelease(h);
end

% R-134a as refrigeration tables have it (Tillner-Roth and Baehr, J. Phys. Chem. Ref. Data 23 (1994) 657): heat and entropy
% of evaporation at 1 bar are 217.2 kJ/kg and 880 J/kg/K.
function diagrams_of_one_compound_have_its_heat_of_evaporation(~)
    h = capeOpenCreate(natural_gas(), 'Refrigerants');
    X = mixture(h, 'R-134a', 1);
    capeOpenBasis('mass');
    [enthalpy, P, vapor] = capeOpenPh(h, X, 1e5);
    check(vapor(1) == 1 && vapor(end) == 0 && abs(P(1) / P(end) - 1) < 1e-9, 'ends at %g and %g Pa', P(1), P(end));
    check(abs((enthalpy(1) - enthalpy(end)) / 217.2e3 - 1) < 0.03, '%g J/kg', enthalpy(1) - enthalpy(end));
    [entropy, T] = capeOpenTs(h, X, 1e5);
    capeOpenBasis('mole');
    check(abs((entropy(1) - entropy(end)) / 880 - 1) < 0.03, '%g J/kg/K', entropy(1) - entropy(end));
    check(abs(T(1) - 246.8) < 1, 'it boils at %g K', T(1));
    top = find(vapor == 0, 1);
    check(abs(enthalpy(top) - enthalpy(top - 1)) < 0.1 * (enthalpy(1) - enthalpy(end)), 'the dome is open');
    capeOpenRelease(h);
end

% Across the dome of one compound isotherms and isobars are level, from vapor to liquid and from liquid to vapor.
function lines_across_the_dome_of_one_compound_are_level(~)
    h = capeOpenCreate(natural_gas(), 'Refrigerants');
    X = mixture(h, 'R-134a', 1);
    [~, ~, ~, isotherms] = capeOpenPh(h, X, 1e5, [280 400], []);
    [~, ~, ~, isobars] = capeOpenTs(h, X, 1e5, [5e5 60e5], []);
    for kind = {isotherms, 'Temperature', 280, 'Pressure', 'enthalpy', [1 0]
                isobars, 'Pressure', 5e5, 'Temperature', 'entropy', [0 1]}.'
        [lines, held, value, other, property, order] = kind{:};
        k = find(diff(lines{1}(:, 2)) == 0);
        check(numel(k) == 1 && all(diff(lines{1}([1:k, k + 2:end], 2)) > 0), '%s: %d level parts', property, numel(k));
        for side = [1 2]
            [level, x] = capeOpenMultiFlash(h, X, held, value, 'vaporFraction', order(side), 'Unspecified', {other, property});
            row = lines{1}(k + side - 1, :);
            check(max(abs(row ./ [x, level] - 1)) < 1e-9, '%s: %g at %g', property, row);
        end
        check(all(diff(lines{2}(:, 2)) > 0), '%s: a level part above the critical point', property);
    end
    capeOpenRelease(h);
end

% The dome's lower end has its line, too: there the range begins at the level itself, give or take the last digit.
function lines_along_the_lower_end_of_the_dome_are_level(~)
    h = opened();
    for compound = capeOpenCompoundList(h).'
        X = mixture(h, compound{1}, 1);
        [entropy, T, ~, isobars] = capeOpenTs(h, X, 1e5, 1e5, []);
        check_begins(isobars{1}, [entropy([end 1]), T([end 1])], compound{1});
        [enthalpy, P, ~, isotherms] = capeOpenPh(h, X, 1e5, T(1), []);
        check_begins(isotherms{1}, [enthalpy([1 end]), P([1 end])], compound{1});
    end
    capeOpenRelease(h);
end

function check_begins(line, expected, what)
    off = max(max(abs(line([1 2], :) - expected) ./ max(1, abs(expected))));
    check(off < 1e-9, '%s begins with %s', what, mat2str(line([1 2], :)));
    check(all(diff(line(2:end, 2)) > 0), '%s does not go on', what);
end

% Each line at one of its points against a flash for the enthalpy or entropy found there.
function diagrams_of_a_mixture_are_those_of_the_flash(~)
    [h, Z] = opened();
    [enthalpy, P, vapor, isotherms, quality] = capeOpenPh(h, Z, 1e5, [200 260], [0.3 0.6]);
    [entropy, T, again, isobars, of_entropy] = capeOpenTs(h, Z, 1e5, [5e5 40e5], 0.5);
    check(isequal(size(enthalpy), size(P), size(vapor)) && isequal(size(entropy), size(T), size(again)), 'sizes');
    for k = [5, numel(P) - 5]
        [found, temperature] = capeOpenMultiFlash(h, Z, 'Pressure', P(k), 'enthalpy', enthalpy(k), 'Unspecified', ...
                                                  'vaporFraction Temperature');
        check(abs(found - vapor(k)) < 1e-5, 'vapor fraction %g', found);
        check(abs(temperature / T(k) - 1) < 1e-6, 'another dome of entropy');
    end
    for k = 1:2
        row = isotherms{k}(100, :);
        found = capeOpenMultiFlash(h, Z, 'Pressure', row(2), 'enthalpy', row(1), 'Unspecified', 'Temperature');
        check(abs(found - [200 260](k)) < 1e-5, 'an isotherm of %g K', found);
        row = quality{k}(20, :);
        found = capeOpenMultiFlash(h, Z, 'Pressure', row(2), 'enthalpy', row(1), 'Unspecified', 'vaporFraction');
        check(abs(found - [0.3 0.6](k)) < 1e-5, 'a vapor fraction of %g', found);
        row = isobars{k}(150, :);
        found = capeOpenMultiFlash(h, Z, 'Temperature', row(2), 'entropy', row(1), 'Unspecified', 'Pressure');
        check(abs(found / [5e5 40e5](k) - 1) < 1e-5, 'an isobar of %g Pa', found);
    end
    row = of_entropy{1}(20, :);
    found = capeOpenMultiFlash(h, Z, 'Temperature', row(2), 'entropy', row(1), 'Unspecified', 'vaporFraction');
    check(abs(found - 0.5) < 1e-5, 'a vapor fraction of %g', found);
    check(isempty(get(0, 'CurrentFigure')), 'a figure came with results');
    capeOpenPh(h, Z);
    check_drawn(4, 'enthalpy / (kJ / mol)', 'pressure / bar', '0.8 methane');
    check(strcmp(get(gca(), 'YScale'), 'log'), 'the pressure is not logarithmic');
    figure();
    capeOpenTs(h, Z);
    check_drawn(4, 'entropy / (kJ / mol / K)', 'temperature / K', '0.8 methane');
    capeOpenRelease(h);
end

% From the lowest pressure on, or the next round one.
function isobars_have_round_pressures(~)
    [h, Z] = opened();
    for row = [2e5, 2e5, 5e5, 10e5; 0.3e5, 0.5e5, 1e5, 2e5].'
        [~, T, ~, isobars] = capeOpenTs(h, Z, row(1));
        for k = 1:3
            point = isobars{k}(round(end / 2), :);
            found = capeOpenMultiFlash(h, Z, 'Temperature', point(2), 'entropy', point(1), 'Unspecified', 'Pressure');
            check(abs(found / row(1 + k) - 1) < 1e-5, 'from %g Pa on number %d is at %g Pa', row(1), k, found);
        end
        check(numel(isobars) > 5, '%d isobars', numel(isobars));
    end
    capeOpenRelease(h);
end

function wrong_arguments_are_named(toolbox)
    [h, Z] = opened();
    two = {'propane', 'n-pentane'};
    cases = {
        'PhaseEnvelope', 'Invalid number of arguments for capeOpenPhaseEnvelope', @() capeOpenPhaseEnvelope(h)
        'Pxy', 'Invalid number of arguments for capeOpenPxy', @() capeOpenPxy(h, two)
        'Txy', 'Invalid number of arguments for capeOpenTxy', @() capeOpenTxy()
        'PhaseEnvelope', 'Invalid property package handle', @() capeOpenPhaseEnvelope(7, Z)
        'PhaseEnvelope', 'Invalid number of values for compositions: must match number of compounds', @() capeOpenPhaseEnvelope(h, Z(1:4))
        'PhaseEnvelope', 'Expected fractions that are not negative', @() capeOpenPhaseEnvelope(h, -Z)
        'PhaseEnvelope', 'A phase envelope needs two or more compounds', @() capeOpenPhaseEnvelope(h, double(1:11 == 3))
        'PhaseEnvelope', 'Expected a positive pressure', @() capeOpenPhaseEnvelope(h, Z, [1 2])
        'PhaseEnvelope', 'Expected fractions that are not negative', @() capeOpenPhaseEnvelope(h, Z + 1i)
        'PhaseEnvelope', 'Expected fractions that are not negative', @() capeOpenPhaseEnvelope(h, '12345678901')
        'PhaseEnvelope', 'Expected a positive pressure', @() capeOpenPhaseEnvelope(h, Z, 'x')
        'PhaseEnvelope', 'Expected a positive pressure', @() capeOpenPhaseEnvelope(h, Z, 1e5 + 1i)
        'PhaseEnvelope', 'Expected vapor fractions from 0 to 1', @() capeOpenPhaseEnvelope(h, Z, 1e5, [0.5 NaN])
        'PhaseEnvelope', 'No dew point found at ... Pa', @() capeOpenPhaseEnvelope(h, Z, 1e9)
        'Ph', 'Invalid number of arguments for capeOpenPh', @() capeOpenPh(h)
        'Ph', 'Invalid property package handle', @() capeOpenPh(7, Z)
        'Ph', 'Invalid number of values for compositions: must match number of compounds', @() capeOpenPh(h, Z(1:4))
        'Ph', 'Expected fractions that are not negative', @() capeOpenPh(h, 0 * Z)
        'Ph', 'Expected a positive pressure', @() capeOpenPh(h, Z, -1)
        'Ph', 'Expected positive temperatures of isotherms', @() capeOpenPh(h, Z, 1e5, [200 -1])
        'Ph', 'Expected positive temperatures of isotherms', @() capeOpenPh(h, Z, 1e5, '200')
        'Ph', 'Expected vapor fractions from 0 to 1', @() capeOpenPh(h, Z, 1e5, 200, 50)
        'Ph', 'No dew point found at ... Pa', @() capeOpenPh(h, double(1:11 == 3), 1e9)
        'Ts', 'Invalid number of arguments for capeOpenTs', @() capeOpenTs()
        'Ts', 'Invalid property package handle', @() capeOpenTs(7, Z)
        'Ts', 'Invalid number of values for compositions: must match number of compounds', @() capeOpenTs(h, Z(1:4))
        'Ts', 'Expected fractions that are not negative', @() capeOpenTs(h, -Z)
        'Ts', 'Expected a positive pressure', @() capeOpenTs(h, Z, 'x')
        'Ts', 'Expected positive pressures of isobars', @() capeOpenTs(h, Z, 1e5, [1e5 NaN])
        'Ts', 'Expected vapor fractions from 0 to 1', @() capeOpenTs(h, Z, 1e5, 1e5, {0.5})
        'Ts', 'No dew point found at ... Pa', @() capeOpenTs(h, Z, 1e9)
        'Pxy', 'Invalid property package handle', @() capeOpenPxy(7, two, 300)
        'Pxy', 'Expected a cell array with the names of two compounds', @() capeOpenPxy(h, 'propane', 300)
        'Pxy', 'The package has no compound "..."', @() capeOpenPxy(h, {'propane', 'water'}, 300)
        'Pxy', '"..." may be ...', @() capeOpenPxy(h, {'methane', 'C4H10'}, 300)
        'Pxy', 'The two compounds are the same', @() capeOpenPxy(h, {'propane', 'Propane'}, 300)
        'Pxy', 'Expected a positive temperature', @() capeOpenPxy(h, two, -1)
        'Pxy', 'Expected a positive temperature', @() capeOpenPxy(h, two, [300 320])
        'Pxy', 'Expected a positive temperature', @() capeOpenPxy(h, two, 300 + 1i)
        'Pxy', 'No equilibrium of vapor and liquid found for the two compounds', @() capeOpenPxy(h, two, 600)
        'Txy', 'Invalid property package handle', @() capeOpenTxy(7, two, 1e5)
        'Txy', 'Expected a cell array with the names of two compounds', @() capeOpenTxy(h, {'propane', 3}, 1e5)
        'Txy', 'The package has no compound "..."', @() capeOpenTxy(h, {'propane', 'water'}, 1e5)
        'Txy', '"..." may be ...', @() capeOpenTxy(h, {'methane', 'C4H10'}, 300)
        'Txy', 'The two compounds are the same', @() capeOpenTxy(h, {'propane', 'propane'}, 1e5)
        'Txy', 'Expected a positive pressure', @() capeOpenTxy(h, two, '')
        'Txy', 'No equilibrium of vapor and liquid found for the two compounds', @() capeOpenTxy(h, two, 1e8)
    };
    check_messages(toolbox, cases);
    capeOpenRelease(h);
end

run_test(argv());
