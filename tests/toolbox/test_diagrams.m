% What all diagrams have in common, one test each:
% octave-cli tests/toolbox/test_diagrams.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));
set(0, 'DefaultFigureVisible', 'off');

% Numbers of another class are the same numbers.
function diagrams_are_calculated_in_double(~)
    [h, Z] = open_natural_gas();
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
    [h, Z] = open_natural_gas();
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
    [h, Z] = open_natural_gas();
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

% Without results alone.
function lines_are_drawn(~)
    [h, Z] = open_natural_gas();
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

% The dew points of water are apart from the bubble points; the row of NaN between them is no second liquid.
function gaps_are_no_kind_of_points(~)
    [h, Z] = open_family('hydrocarbon_water', 1);
    [~, P, vapor] = capeOpenPh(h, Z, 1e5, 400, 0.5);
    check(any(isnan(P)) && ~any(isnan(vapor) & ~isnan(P)), 'another mixture is needed');
    capeOpenPh(h, Z, 1e5, 400, 0.5);
    names = get(findobj(gcf(), 'Type', 'axes', 'Tag', 'legend'), 'String');
    check(isequal(names(:).', {'dew points', 'bubble points', 'isotherms', 'vapor fractions'}), '%s', strjoin(names, ', '));
    capeOpenRelease(h);
end

function check_extremes(data, values)
    drawn = get(findobj(gca(), 'Type', 'line'), data);
    drawn = [drawn{:}];
    check(abs(max(drawn) / max(values) - 1) < 1e-9 && abs(min(drawn) / min(values) - 1) < 1e-9, ...
          'drawn from %g to %g', min(drawn), max(drawn));
end

% Where flashes fail from 20 to 30 bar.
function where_the_flash_fails_is_told(~)
    global failing
    failing = [20e5 30e5];
    [h, Z] = open_natural_gas();
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

% Where the package has no derivatives, differences do in their place.
function lines_are_the_same_without_derivatives(~)
    [h, Z] = open_natural_gas();
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

function wrong_arguments_are_named(toolbox)
    [h, Z] = open_natural_gas();
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
