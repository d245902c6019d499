% Diagrams of two compounds, one test each:
% octave-cli tests/toolbox/test_two_compounds.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));
set(0, 'DefaultFigureVisible', 'off');

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

% Boiling points at 101,325 Pa and vapor pressures at 300 K of the NIST Chemistry WebBook; the equation of state is good
% for half a percent of the temperature and two percent of the pressure.
function the_ends_are_the_pure_compounds(~)
    h = open_natural_gas();
    [x, T, y] = capeOpenTxy(h, {'propane', 'n-pentane'}, 101325);
    check(isequal(x([1 end]), [0; 1]) && all(abs(y([1 end]) - [0; 1]) < 1e-9), 'ends');
    check(all(abs(T([1 end]) ./ [309.2; 231.0] - 1) < 0.005), 'boiling points %g and %g', T(1), T(end));
    [x, P] = capeOpenPxy(h, {'n-butane', 'propane'}, 300);
    check(all(abs(P([1 end]) ./ [9.98e5; 2.58e5] - 1) < 0.02), 'vapor pressures %g and %g', P(1), P(end));
    capeOpenRelease(h);
end

% What the package's own flash splits a mixture between the lines into are the two ends of a tie line.
function the_flash_gives_the_same_tie_lines(~)
    h = open_natural_gas();
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
    h = open_natural_gas();
    [x, P, y] = capeOpenPxy(h, {'methane', 'n-butane'}, 300);
    check(x(1) == 0 && x(end) == y(end) && x(end) > 0.7 && x(end) < 0.8, 'it ends at %g and %g', x(end), y(end));
    check(P(end) == max(P), 'not the highest pressure');
    [x2, P2, y2] = capeOpenPxy(h, {'n-butane', 'methane'}, 300);
    check(x2(end) == 1 && abs(x2(1) - (1 - x(end))) < 1e-3 && abs(P2(1) / P(end) - 1) < 1e-3, 'the other way round');
    capeOpenRelease(h);
end

% Carbon dioxide and ethane form an azeotrope; the lines touch there and go on.
function an_azeotrope_is_passed(~)
    h = open_natural_gas();
    [x, P, y] = capeOpenPxy(h, {'carbon dioxide', 'ethane'}, 263.15);
    check(isequal(x([1 end]), [0; 1]) && y(3) > x(3) && y(end - 2) < x(end - 2), 'no azeotrope');
    [~, top] = max(P);
    check(abs(x(top) - y(top)) < 0.02, 'the lines do not touch at the highest pressure');
    capeOpenRelease(h);
end

% They are called as the package calls them.
function two_compounds_are_found_as_in_a_composition(~)
    h = open_natural_gas();
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

% Of n-pentane with next to nothing else no property is known, so that the lines begin and end at propane.
function a_compound_without_a_boiling_point_is_told(~)
    global failing
    h = open_natural_gas();
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

% Water takes up 1e-8 to 1e-24 of these. The diagram is whole whichever of the two is followed, and both liquids boil where a
% flash of the two boils them.
function what_hardly_dissolves_has_a_whole_diagram(~)
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    for other = {'n-butane', 'n-pentane', 'n-octane', 'n-decane', 'toluene'}
        for P = [1e5 5e5]
            lastwarn('');
            [x, T, y] = capeOpenTxy(h, {'water', other{1}}, P);
            [x_other, T_other, y_other] = capeOpenTxy(h, {other{1}, 'water'}, P);
            check(isempty(lastwarn()), '%s: %s', other{1}, lastwarn());
            check(~any(isnan(x)) && x(1) == 0 && x(end) == 1, '%s: from %g to %g', other{1}, x(1), x(end));
            check(isequal(size(T), size(T_other)) && max(abs(T - flipud(T_other))) < 1e-5 ...
                  && max(abs(x + flipud(x_other) - 1)) < 1e-6 && max(abs(y + flipud(y_other) - 1)) < 1e-6, ...
                  '%s: other lines with the other first', other{1});
            [labels, ~, X, boiling] = capeOpenFlash(h, mixture(h, 'water', 0.5, other{1}, 0.5), 'Pressure', P, ...
                                                    'vaporFraction', 0.3, 'Unspecified');
            vapor = X(strcmp(labels, 'Vapor'), strcmp(capeOpenCompoundList(h), 'water'));
            here = find(diff(x) > 0.5);
            check(numel(here) == 1 && max(abs(T(here + [0 1]) - boiling)) < 1e-4 && abs(y(here) - vapor) < 1e-6, ...
                  '%s: both liquids boil at %g K', other{1}, boiling);
        end
    end
    capeOpenRelease(h);
end

% Methane and ethane at 60 bar: neither boils alone, but mixtures do, and both lines meet at two critical points.
function a_closed_loop_has_two_critical_points(~)
    h = open_natural_gas();
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

run_test(argv());
