% Diagrams over enthalpy and entropy, one test each:
% octave-cli tests/toolbox/test_dome.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));
set(0, 'DefaultFigureVisible', 'off');

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
    h = open_natural_gas();
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
    [h, Z] = open_natural_gas();
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
    [h, Z] = open_natural_gas();
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

run_test(argv());
