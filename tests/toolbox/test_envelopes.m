% Phase envelopes of mixtures, one test each:
% octave-cli tests/toolbox/test_envelopes.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% The package's own flash, which knows nothing of the curve, finds one phase outside of it and two inside.
function the_flash_finds_two_phases_within_the_envelope_alone(~)
    [h, Z] = open_natural_gas();
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

% Next to where vapor and a second liquid become the same a line has points beyond the last one.
function points_that_the_flash_does_not_find_are_told(~)
    [package, Z] = mixture_of_family('sour', 12);
    h = capeOpenCreate('Verdanth Reference Packages', package);
    lastwarn('');
    [T, P] = capeOpenPhaseEnvelope(h, Z);
    told = regexp(lastwarn(), 'the package''s flash finds other phases at (\d) of the points, first at (\S+) K', 'tokens');
    check(numel(told) == 1 && str2double(told{1}{1}) < 6, 'told was: %s', lastwarn());
    [~, first] = min(abs(T - str2double(told{1}{2})));
    for shift = [-1e-5 0 1e-5]
        check(phases_at(h, Z, T(first) * (1 + shift), P(first)) == 2, 'a boundary near %g K', T(first));
    end
    capeOpenRelease(h);
    [package, Z] = mixture_of_family('sour', 91); % with more phases than the package has names for
    h = capeOpenCreate('Verdanth Reference Packages', package);
    [T, P] = capeOpenPhaseEnvelope(h, Z);
    told = regexp(lastwarn(), 'the package''s flash of the mixture fails at (\d+) of the points, first at (\S+) K', 'tokens');
    check(numel(told) == 1, 'told was: %s', lastwarn());
    first = find(abs(T - str2double(told{1}{2})) < 0.01);
    many = capeOpenMultiFlash(h, Z, 'Temperature', T, 'Pressure', P, 'Unspecified', 'vaporFraction');
    check(isequal(find(isnan(many) & ~isnan(T), 1), first) && sum(isnan(many) & ~isnan(T)) == str2double(told{1}{1}), ...
          'the flash fails at %d points', sum(isnan(many)));
    capeOpenRelease(h);
end

% Two phases just below the critical point are nearly the same.
function the_critical_point_is_where_the_phases_become_the_same(~)
    [h, Z] = open_natural_gas();
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

function an_envelope_starts_where_it_is_told(~)
    [h, Z] = open_natural_gas();
    [~, P] = capeOpenPhaseEnvelope(h, Z, 10e5);
    check(all(abs(P([1 end]) / 10e5 - 1) < 1e-9) && min(P) > 9.9e5, 'from %g to %g', P(1), P(end));
    capeOpenRelease(h);
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
        check(found.told, '%s %d: points that are not the flash''s, without a word', family, seed);
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

% One flash on each line of constant vapor fraction.
function lines_of_vapor_fractions_are_those_of_the_flash(~)
    [h, Z] = open_natural_gas();
    [~, ~, ~, ~, threePhases, quality] = capeOpenPhaseEnvelope(h, Z, 1e5, [0.5 0.9]);
    check(isempty(threePhases) && numel(quality) == 2, 'other results');
    for k = 1:2
        row = quality{k}(round(end / 3), :);
        found = capeOpenMultiFlash(h, Z, 'Temperature', row(1), 'Pressure', row(2), 'Unspecified', 'vaporFraction');
        check(abs(found - [0.5 0.9](k)) < 1e-5, 'vapor fraction %g', found);
    end
    capeOpenRelease(h);
end

run_test(argv());
