% Units and tables, one test each:  octave-cli tests/toolbox/test_units.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function p = opened(varargin)
    [manager, package] = natural_gas();
    p = capeopen.Package(manager, package, varargin{:});
end

function yes = near(a, b)
    yes = isequal(size(a), size(b)) && all(abs(a(:) - b(:)) <= 1e-6 * abs(b(:)));
end

% Numbers as they stand in tables of conversions.
function units_are_converted(~)
    cases = {
        1, 'atm', 'bar', 1.01325
        1, 'atm', 'psi', 14.695949
        760, 'Torr', 'atm', 1
        1, 'mmHg', 'Pa', 133.32239
        25, 'degC', 'K', 298.15
        212, 'degF', 'K', 373.15
        -40, 'degC', 'degF', -40
        671.67, 'degR', 'degF', 212
        0, 'K', 'degC', -273.15
        1, 'kcal', 'kJ', 4.184
        1, 'kWh', 'MJ', 3.6
        1, 'Btu', 'J', 1055.05585
        1, 'lb/ft3', 'kg/m3', 16.018463
        1, 'g / cm3', 'kg / m3', 1000
        1, 'Btu/lb/degF', 'kJ/kg/K', 4.1868
        1, 'J / mol / K', 'kJ/kmol/degC', 1
        5, 'kJ/kmol', 'J / mol', 5
        1, 'mol / m3', 'kmol/l', 1e-6
        1, 'lbmol/ft^3', 'mol/m^3', 16018.463
        1, 'cP', 'Pa s', 1e-3
        1, 'dyn/cm', 'mN / m', 1
        1, 'W / m / K', 'mW/m/K', 1000
        1, '1 / Pa', '1/bar', 1e5
        2, 'm2 / s', 'cm2/h', 7.2e7
        16.04, 'gr / mol', 'kg/kmol', 16.04
        3, 'mole fraction', 'mole fraction', 3
    };
    for k = 1:size(cases, 1)
        found = capeOpenUnits(cases{k, 1:3});
        check(abs(found - cases{k, 4}) <= 1e-7 * max(abs(cases{k, 4}), 1e-3), '%s to %s: %.10g', cases{k, 2:3}, found);
    end
    check(near(capeOpenUnits([1 2; 3 4], 'bar', 'Pa'), [1e5 2e5; 3e5 4e5]), 'an array');
    check(isa(capeOpenUnits(single(1), 'bar', 'Pa'), 'double'), 'class');
    units = capeOpenUnits();
    check(iscellstr(units) && all(ismember({'bar', 'degC', 'kJ'}, units)) && numel(unique(units)) == numel(units), 'list');
end

% What each is in SI, as the brochure of the BIPM, NIST's Special Publication 811 and, for mmHg, ISO 80000-4 tell.
function every_unit_is_what_is_published(~)
    published = {
        'kg', 1, 'kg'
        'g', 1e-3, 'kg'
        'gr', 1e-3, 'kg'
        'mg', 1e-6, 'kg'
        't', 1000, 'kg'
        'lb', 0.45359237, 'kg'
        'm', 1, 'm'
        'km', 1000, 'm'
        'cm', 0.01, 'm'
        'mm', 0.001, 'm'
        'ft', 0.3048, 'm'
        'in', 0.0254, 'm'
        'l', 0.001, 'm3'
        'ml', 1e-6, 'm3'
        's', 1, 's'
        'min', 60, 's'
        'h', 3600, 's'
        'd', 86400, 's'
        'K', 1, 'K'
        'degC', 1, 'K'
        'degF', 0.555555555555556, 'K'
        'degR', 0.555555555555556, 'K'
        'mol', 1, 'mol'
        'mmol', 0.001, 'mol'
        'kmol', 1000, 'mol'
        'lbmol', 453.59237, 'mol'
        'N', 1, 'kg m / s2'
        'mN', 0.001, 'kg m / s2'
        'kN', 1000, 'kg m / s2'
        'dyn', 1e-5, 'kg m / s2'
        'Pa', 1, 'kg / m s2'
        'hPa', 100, 'kg / m s2'
        'kPa', 1000, 'kg / m s2'
        'MPa', 1e6, 'kg / m s2'
        'mbar', 100, 'kg / m s2'
        'bar', 1e5, 'kg / m s2'
        'atm', 101325, 'kg / m s2'
        'Torr', 133.322368421053, 'kg / m s2'
        'mmHg', 133.322387415, 'kg / m s2'
        'psi', 6894.757293168, 'kg / m s2'
        'J', 1, 'kg m2 / s2'
        'kJ', 1000, 'kg m2 / s2'
        'MJ', 1e6, 'kg m2 / s2'
        'GJ', 1e9, 'kg m2 / s2'
        'cal', 4.184, 'kg m2 / s2'
        'kcal', 4184, 'kg m2 / s2'
        'Btu', 1055.05585262, 'kg m2 / s2'
        'Wh', 3600, 'kg m2 / s2'
        'kWh', 3.6e6, 'kg m2 / s2'
        'W', 1, 'kg m2 / s3'
        'mW', 0.001, 'kg m2 / s3'
        'kW', 1000, 'kg m2 / s3'
        'MW', 1e6, 'kg m2 / s3'
        'P', 0.1, 'kg / m s'
        'cP', 0.001, 'kg / m s'
    };
    for k = 1:size(published, 1)
        [unit, value, SI] = published{k, :};
        found = capeOpenUnits(1, [unit ' mol'], ['mol ' SI]); % next to another a temperature is a difference
        check(abs(found / value - 1) < 1e-13, '%s is %.15g %s', unit, found, SI);
    end
    alone = {'C'}; % no other measures the same
    check(isequal(sort(capeOpenUnits()), sort([published(:, 1); alone])), 'units without a row, or rows without a unit');
    for unit = published(:, 3).'
        message = message_of(@() capeOpenUnits(1, 'C', unit{1}));
        check(strcmp(message, sprintf('"C" and "%s" do not measure the same', unit{1})), '%s', message);
    end
    zeros_of_scales = {'degC', 273.15; 'degF', 255.372222222222; 'degR', 0};
    for k = 1:3
        found = capeOpenUnits(0, zeros_of_scales{k, 1}, 'K');
        check(abs(found - zeros_of_scales{k, 2}) < 1e-10, '0 %s is %.15g K', zeros_of_scales{k, 1}, found);
    end
end

% Also those that can not be converted, so that scripts may ask for the unit that they have.
function every_unit_of_the_library_is_itself(~)
    p = opened();
    h = p.Handle;
    lists = {@capeOpenConstantPropList, @capeOpenTDependentPropList, @capeOpenPDependentPropList, ...
             @capeOpenSinglePhasePropList, @capeOpenTwoPhasePropList, @capeOpenFlashPropList};
    names = cellfun(@(list) reshape(list(h), [], 1), lists, 'UniformOutput', false);
    names = [vertcat(names{:}); {'parachor'; 'gyrationRadius'; 'fraction'; 'phaseFraction'; 'fugacity.Dpressure'}];
    units = cellfun(@capeOpenPropUnit, names, 'UniformOutput', false);
    capeOpenBasis('mass'); % in which derivatives by amounts have none
    units = [units; cellfun(@capeOpenPropUnit, {'fraction'; 'enthalpy'; 'density'}, 'UniformOutput', false)];
    for unit = unique(units).'
        check(isequal(capeOpenUnits([3 5], unit{1}, unit{1}), [3 5]), '%s', unit{1});
    end
    check(all(ismember({'', 'M', 'mole fraction', 'mass fraction', 'Pa / Pa', 'kg / m3'}, units)), 'units: %s', strjoin(unique(units).', ', '));
end

function units_are_chosen(~)
    cases = {
        'J / mol / K', {'bar', 'degC', 'kJ', 'kmol'}, 'kJ / kmol / K'
        'K', {'bar', 'degC'}, 'degC'
        'J / mol / K', {'degF'}, 'J / mol / degR'
        '1 / Pa', {'bar'}, '1 / bar'
        'kg / m3', {'g', 'cm'}, 'g / cm3'
        'kg / m3', {'l'}, 'kg / l'
        'Pa s', {'cP'}, 'cP'
        'm2 / s', {'mm'}, 'mm2 / s'
        'mole fraction', {'bar'}, 'mole fraction'
        'J / mol', {}, 'J / mol'
        'J / mol', 'kcal', 'kcal / mol'
    };
    for k = 1:size(cases, 1)
        found = capeOpenUnits(cases{k, 1:2});
        check(strcmp(found, cases{k, 3}), '%s: %s', cases{k, 1}, found);
    end
end

function what_is_no_unit_is_told(toolbox)
    cases = {
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'Bar', 'Pa')
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'nonsense', 'nonsense')
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'm-', 'm')
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'm^', 'm')
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'molefraction', 'molefraction')
        'Units', 'Not a known unit: "..."', @() capeOpenUnits('J / mol', {'kJ / mol'})
        'Units', 'Not a known unit: "..."', @() capeOpenUnits(1, 'm3 kg0.25 / (s 0.5 mol)', 'Pa')
        'Units', '"..." and "..." do not measure the same', @() capeOpenUnits(1, 'bar', 'K')
        'Units', '"..." and "..." do not measure the same', @() capeOpenUnits(1, 'J / mol', 'J / kg')
        'Units', 'Invalid number of arguments for capeOpenUnits', @() capeOpenUnits(1)
    };
    check_messages(toolbox, cases);
    message = message_of(@() capeOpenUnits(1, 'Bar', 'Pa'));
    check(strcmp(message, sprintf('Not a known unit: "Bar"\n  Near it there are bar, mbar')), '%s', message);
    check(strcmp(message_of(@() opened('Units', {'kelvins'})), 'Not a known unit: "kelvins"'), 'object');
    check(isempty(capeOpenHandleList()), 'a package is open');
end

% The same calls in SI and in other units.
function an_object_has_its_units(~)
    [~, ~, Z] = natural_gas();
    p = opened();
    q = opened('Units', {'bar', 'degC', 'kJ', 'kmol'});
    check(isequal(q.Units, {'bar', 'degC', 'kJ', 'kmol'}) && isempty(p.Units), 'Units');
    check(strcmp(q.unit('entropy'), 'kJ / kmol / K') && strcmp(p.unit('entropy'), 'J / mol / K'), 'unit');
    r = p.flash(Z, 'Temperature', 220, 'Pressure', 4e6);
    s = q.flash(Z, 'Temperature', -53.15, 'Pressure', 40);
    check(near(s.compositions, r.compositions) && near(s.fractions, r.fractions) && near([s.T s.P], [-53.15 40]), 'flash');
    h = p.multiflash(Z, 'Temperature', 220, 'Pressure', 4e6, 'enthalpy');
    s = q.flash(Z, 'Pressure', 40, 'enthalpy', h); % kJ / kmol is J / mol
    check(near(s.T, -53.15) && near(s.P, 40), 'flash by enthalpy');
    [a, b] = p.single('density fugacity', 300, 2e5, Z, 'Vapor');
    [c, d] = q.single('density fugacity', 26.85, 2, Z, 'Vapor');
    check(near(c, a / 1000) && near(d, b / 1e5), 'single');
    check(near(q.single('enthalpy.Dpressure', 26.85, 2, Z, 'Vapor'), p.single('enthalpy.Dpressure', 300, 2e5, Z, 'Vapor') * 1e5), ...
          'derivative');
    a = p.twophase('kvalue', 220, 4e6, Z, Z, 'Vapor', 'Liquid');
    check(near(q.twophase('kvalue', -53.15, 40, Z, Z, 'Vapor', 'Liquid'), a), 'twophase');
    a = p.tdep('vaporPressure', 300);
    check(near(q.tdep('vaporPressure', 26.85)(2:8), a(2:8) / 1e5), 'tdep');
    a = p.constant('criticalTemperature');
    check(near(q.constant('criticalTemperature'), a - 273.15), 'constant');
    check(isequal(q.constant('chemicalFormula'), p.constant('chemicalFormula')), 'text');
    [T, H] = q.multiflash(Z, 'Temperature', [-60; -53.15], 'Pressure', 40, 'Temperature enthalpy');
    check(near(T, [-60; -53.15]) && near(H(2), h), 'multiflash');
    [T, H, texts] = q.multiflash(Z, 'Temperature', [-60; -300], 'Pressure', 40, 'Temperature enthalpy');
    check(near(T(1), -60) && isnan(H(2)) && isempty(texts{1}), 'multiflash with texts');
    check(strncmp(texts{2}, 'Flash failed at -26.85, 4e+06: ', 31), '%s', texts{2});
    q.Units = 'atm';
    s = q.flash(Z, 'Temperature', 220, 'Pressure', 4e6 / 101325);
    check(near([s.T s.P], [220 4e6 / 101325]) && near(s.fractions, r.fractions), 'Units set later');
    capeOpenBasis('mass');
    check(strcmp(q.unit('density'), 'kg / m3'), 'mass basis');
end

% What a flash tells of each phase is what the package calculates for that phase.
function a_flash_tells_all_of_its_phases(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    bases = {'mole', 'mass'};
    for b = 1:2
        capeOpenBasis(bases{b});
        r = p.flash(Z, 'Temperature', 220, 'Pressure', 4e6, 'Properties', true);
        s = p.flash(Z, 'Temperature', 220, 'Pressure', 4e6, 'Normal');
        check(isequal(fieldnames(r), [fieldnames(s); {'density'; 'enthalpy'; 'entropy'; 'heatCapacityCp'; 'heatCapacityCv'; 'molarMass'}]), 'fields');
        for name = {'density', 'enthalpy', 'entropy', 'heatCapacityCp', 'heatCapacityCv'}
            for k = 1:2
                expected = p.single(name{1}, 220, 4e6, s.compositions(k, :), s.phases{k});
                check(near(r.(name{1})(k), expected), '%s of %s', name{1}, s.phases{k});
            end
        end
        for k = 1:2
            expected = p.single('molecularWeight', 220, 4e6, s.compositions(k, :), s.phases{k});
            check(near(r.molarMass(k), expected), 'molar mass');
        end
    end
    shown = evalc('p.flash(Z, ''Temperature'', 220, ''Pressure'', 4e6, ''properties'', true);');
    lines = strsplit(strtrim(shown), '\n');
    check(numel(lines) == 20 && ~isempty(regexp(lines{15}, '^  density  kg / m3 ', 'once')), '%s', shown);
end

function check_tables(p, Z)
    t = p.flash(Z, 'Temperature', -53.15, 'Pressure', 40, 'Properties', true, 'Table', true);
    r = p.flash(Z, 'Temperature', -53.15, 'Pressure', 40, 'Properties', true);
    names = {'phase', 'fraction', 'composition', 'T', 'P', 'density', 'enthalpy', 'entropy', 'heatCapacityCp', 'heatCapacityCv', 'molarMass'};
    check(isequal(t.Properties.VariableNames, names), 'names');
    check(isequal(t.Properties.VariableUnits, {'', 'mole fraction', 'mole fraction', 'degC', 'bar', 'mol / m3', 'kJ / mol', ...
                  'kJ / mol / K', 'kJ / mol / K', 'kJ / mol / K', 'g / mol'}), 'units');
    check(isequal(t.phase, {'Vapor'; 'Liquid'}) && isequal(t.fraction, r.fractions(:)) && isequal(t.composition, r.compositions), 'phases');
    check(isequal(t.enthalpy, r.enthalpy(:)) && isequal(t.P, [r.P; r.P]), 'columns');
    t = p.multiflash(Z, 'Pressure', 40, 'Temperature', [-60; -50; -40], 'Normal', {'vaporFraction', 'enthalpy'}, 'Table', true);
    [a, b] = p.multiflash(Z, 'Pressure', 40, 'Temperature', [-60; -50; -40], 'vaporFraction enthalpy');
    check(isequal(t.Properties.VariableNames, {'Pressure', 'Temperature', 'vaporFraction', 'enthalpy'}), 'names');
    check(isequal(t.Properties.VariableUnits, {'bar', 'degC', 'mole fraction', 'kJ / mol'}), 'units');
    check(isequal(t.Pressure, [40; 40; 40]) && isequal(t.Temperature, [-60; -50; -40]), 'what was specified');
    check(isequal(t.vaporFraction, a) && isequal(t.enthalpy, b), 'results');
    t = p.multiflash(Z, 'Pressure', 40, 'enthalpy', -7, 'Temperature Pressure', 'Table', true);
    check(isequal(t.Properties.VariableNames, {'enthalpy', 'Temperature', 'Pressure'}), 'each name once');
end

function results_can_be_tables(~)
    [~, ~, Z] = natural_gas();
    p = opened('Units', {'bar', 'degC', 'kJ'});
    check_tables(p, Z);
    check(isstruct(p.flash(Z, 'Temperature', -53.15, 'Pressure', 40, 'Table', true)), 'Octave has no tables');
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_types'));
    check(isa(p.flash(Z, 'Temperature', -53.15, 'Pressure', 40, 'Table', true), 'table'), 'MATLAB has tables');
    check_tables(p, Z);
end

run_test(argv());
