% What the functions make of what people type, one test each:  octave-cli tests/toolbox/test_arguments.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function p = opened()
    [manager, package] = natural_gas();
    p = capeopen.Package(manager, package);
end

function types_of_matlab()
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_types'));
end

function numbers_of_any_class_are_taken(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    h = p.Handle;
    density = @(T, P, X) capeOpenSinglePhaseProp(h, 'density', T, P, X, 'Vapor');
    expected = density([300; 310], 1e5, Z);
    for T = {single([300; 310]), int32([300; 310]), uint16([300; 310]), int64([300; 310]), sparse([300; 310])}
        check(isequal(density(T{1}, single(1e5), sparse(Z)), expected), '%s', class(T{1}));
    end
    expected = capeOpenMultiFlash(h, Z, 'Temperature', [220; 230], 'Pressure', 4e6, 'Normal', 'enthalpy');
    found = capeOpenMultiFlash(h, sparse(Z), 'Temperature', int16([220; 230]), 'Pressure', uint32(4e6), 'Normal', 'enthalpy');
    check(isequal(found, expected), 'a batch of flashes');
    [~, expected] = capeOpenFlash(h, Z, 'Temperature', 220, 'Pressure', 4e6, 'Normal');
    [~, found] = capeOpenFlash(h, sparse(Z), 'Temperature', single(220), 'Pressure', int32(4e6), 'Normal');
    check(isequal(found, expected), 'a flash');
end

% The library sees what it can read alone: in MATLAB it would take the values of a sparse array for those of a full one.
function nothing_sparse_reaches_the_library_in_matlab(~)
    global recorded_inputs next_answer
    types_of_matlab();
    next_answer = {1};
    sparse_columns = {sparse([1; 0; 2]), sparse(3), sparse([0 1])};
    full_columns = {[1; 0; 2], 3, [0 1]};
    capeOpenSinglePhaseProp(int32(1), 'density', sparse_columns{:}, 'Vapor');
    check(isequal(recorded_inputs(3:end), [{int32(1), 'density'}, full_columns, {'Vapor'}]), 'values');
    check(~any(cellfun(@issparse, recorded_inputs)) && isa(recorded_inputs{3}, 'int32'), 'one phase');
    capeOpenTwoPhaseProp(int32(1), 'kvalue', sparse_columns{:}, sparse([1 0]), 'Vapor', 'Liquid');
    check(~any(cellfun(@issparse, recorded_inputs)) && isequal(recorded_inputs{8}, [1 0]), 'two phases');
    capeOpenTDependentProp(int32(1), 'vaporPressure', sparse_columns{1});
    check(~any(cellfun(@issparse, recorded_inputs)) && isequal(recorded_inputs{end}, [1; 0; 2]), 'temperatures');
    capeOpenPDependentProp(int32(1), 'meltingTemperature', sparse_columns{1});
    check(~any(cellfun(@issparse, recorded_inputs)) && isequal(recorded_inputs{end}, [1; 0; 2]), 'pressures');
    capeOpenMultiFlash(int32(1), sparse([0 1]), 'Temperature', sparse(3), 'Pressure', sparse([1; 0]), 'Normal', 'enthalpy');
    check(~any(cellfun(@issparse, recorded_inputs)) && isequal(recorded_inputs([3 5 7]), {[0 1], 3, [1; 0]}), 'batch');
    capeOpenFlash(int32(1), sparse([0 1]), 'Temperature', sparse(3), 'Pressure', 4, 'Normal');
    check(~any(cellfun(@issparse, recorded_inputs)) && isequal(recorded_inputs{3}, [0 1]), 'flash');
end

function what_needs_no_change_is_not_changed(~)
    global recorded_inputs next_answer
    next_answer = {1};
    T = {300, (300:310).', zeros(0, 1), NaN};
    for k = 1:numel(T)
        given = {int32(4), {'density', 'enthalpy'}, T{k}, 1e5, [1 2; 3 4], 'Vapor'};
        capeOpenSinglePhaseProp(given{:});
        check(isequaln(recorded_inputs(3:end), given), 'in Octave %d', k);
    end
    types_of_matlab();
    clear capeOpenSinglePhaseProp libraryArguments
    capeOpenSinglePhaseProp(given{:});
    check(isequaln(recorded_inputs(3:end), given), 'in MATLAB');
end

function strings_are_text(~)
    types_of_matlab();
    [manager, package, Z] = natural_gas();
    s = @string;
    p = capeopen.Package(s(manager), s(package));
    h = p.Handle;
    check(strcmp(p.Name, 'Verdanth Reference Packages:Natural gas'), 'names of packages');
    check(isequal(capeOpenConstant(h, s('criticalPressure')), capeOpenConstant(h, 'criticalPressure')), 'constant');
    [a, b] = capeOpenSinglePhaseProp(h, s({'density', 'enthalpy'}), 300, 1e5, Z, s('Vapor'));
    [c, d] = capeOpenSinglePhaseProp(h, {'density', 'enthalpy'}, 300, 1e5, Z, 'Vapor');
    check(isequal({a, b}, {c, d}), 'an array of names');
    [a, b] = capeOpenSinglePhaseProp(h, {s('density'), 'enthalpy'}, 300, 1e5, Z, 'Vapor');
    check(isequal({a, b}, {c, d}), 'a cell array with both');
    r = p.flash(Z, s('Temperature'), 220, s('Pressure'), 4e6, s('Normal'));
    check(isequal(r, p.flash(Z, 'Temperature', 220, 'Pressure', 4e6)), 'flash');
    a = capeOpenMultiFlash(h, Z, s('Temperature'), 220, s('Pressure'), 4e6, s('Normal'), s('enthalpy'));
    check(isequal(a, capeOpenMultiFlash(h, Z, 'Temperature', 220, 'Pressure', 4e6, 'Normal', 'enthalpy')), 'batch');
    check(strcmp(capeOpenPropUnit(s('density')), 'mol / m3'), 'unit');
    capeOpenBasis(s('mass'));
    check(strcmp(capeOpenPropUnit('density'), 'kg / m3'), 'basis');
    r = p.flash({s('methane'), 0.5, s('ethane'), 0.5}, 'Temperature', 300, 'Pressure', 1e5);
    check(max(abs(r.compositions - [0.5 0.5 zeros(1, 9)])) < 1e-12, 'names of compounds');
    expected = r.compositions;
    r = p.flash({s({'methane', 'ethane'}), [0.5 0.5]}, 'Temperature', 300, 'Pressure', 1e5);
    check(isequal(r.compositions, expected), 'an array of names of compounds');
    r = p.flash({{s('methane'), 'ethane'}, [0.5 0.5]}, 'Temperature', 300, 'Pressure', 1e5);
    check(isequal(r.compositions, expected), 'a cell array of names of compounds with both');
    t = p.multiflash(Z, 'Temperature', 220, 'Pressure', 4e6, {s('vaporFraction'), 'enthalpy'}, 'Table', true);
    check(isequal(t.Properties.VariableNames, {'Temperature', 'Pressure', 'vaporFraction', 'enthalpy'}), 'names of a table');
    p.Units = {s('bar'), 'degC'};
    check(iscellstr(p.Units) && isequal(p.Units, {'bar', 'degC'}), 'units');
    p.Units = s({'bar', 'degC'});
    check(isequal(p.Units, {'bar', 'degC'}), 'an array of units');
    [x, P] = capeOpenPxy(h, s({'propane', 'n-pentane'}), 320);
    [x2, P2] = capeOpenPxy(h, {s('propane'), 'n-pentane'}, 320);
    [x3, P3] = capeOpenPxy(h, {'propane', 'n-pentane'}, 320);
    check(isequal({x, P}, {x2, P2}, {x3, P3}), 'names of two compounds');
    capeOpenWarnings(s('off'));
end

function rows_of_letters_are_names(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    [a, b] = p.single(['density '; 'enthalpy'], 300, 1e5, Z, 'Vapor');
    [c, d] = p.single('density enthalpy', 300, 1e5, Z, 'Vapor');
    check(isequal({a, b}, {c, d}), 'they are read otherwise');
end

function an_object_serves_as_a_handle(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    check(isequal(capeOpenCompoundList(p), p.Compounds), 'compounds');
    check(isequal(capeOpenSinglePhaseProp(p, 'density', 300, 1e5, Z, 'Vapor'), p.single('density', 300, 1e5, Z, 'Vapor')), 'density');
end

function the_solution_type_may_be_left_out(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    h = p.Handle;
    flash = {Z, 'Temperature', 220, 'Pressure', 4e6};
    [~, a, b] = capeOpenFlash(h, flash{:});
    [~, c, d] = capeOpenFlash(h, flash{:}, 'Unspecified');
    check(isequal({a, b}, {c, d}), 'one flash');
    [a, b] = capeOpenMultiFlash(h, flash{:}, 'enthalpy entropy');
    [c, d] = capeOpenMultiFlash(h, flash{:}, 'Unspecified', 'enthalpy entropy');
    check(isequal({a, b}, {c, d}), 'many flashes');
end

% Amounts of methane, n-butane and carbon dioxide, in all the ways to say them.
function compositions_go_by_names(~)
    p = opened();
    h = p.Handle;
    expected = [0.5 0 0 0.3 0 0 0 0 0 0.2 0];
    ways = {
        struct('methane', 0.5, 'n_butane', 0.3, 'carbonDioxide', 0.2)
        struct('CO2', 0.2, 'CH4', single(0.5), 'nButane', 0.3)
        {'methane', 0.5, 'n-butane', 0.3, 'Carbon Dioxide', 0.2}
        {'74-82-8', 0.5, '106-97-8', 0.3, '124-38-9', 0.2}
        {{'CO2', 'methane', 'n-butane'}, [0.2 0.5 0.3]}
        {{'CO2'; 'methane'; 'n-butane'}, [0.2; 0.5; 0.3]}
    };
    for k = 1:numel(ways)
        Z = capeOpenComposition(h, ways{k});
        check(isequal(size(Z), [1 11]) && max(abs(Z - expected)) < 1e-7, 'way %d', k);
        check(abs(capeOpenSinglePhaseProp(h, 'density', 300, 1e5, ways{k}, 'Vapor') ...
                  / capeOpenSinglePhaseProp(h, 'density', 300, 1e5, expected, 'Vapor') - 1) < 1e-6, 'density %d', k);
    end
    rows = capeOpenComposition(h, struct('methane', [0.1; 0.2], 'ethane', [0.9; 0.8]));
    check(isequal(rows, [0.1 0.9 zeros(1, 9); 0.2 0.8 zeros(1, 9)]), 'two rows');
    check(isequal(capeOpenComposition(h, struct('methane', 3, 'ethane', 1)), [3 1 zeros(1, 9)]), 'it is normalized');
    check(isequal(capeOpenComposition(h, struct('methane', 3, 'ethane', 1), 'normalized'), [0.75 0.25 zeros(1, 9)]), 'one row normalized');
    found = capeOpenComposition(h, [3 1 zeros(1, 9); 2 2 zeros(1, 9)], 'normalized');
    check(isequal(found, [0.75 0.25 zeros(1, 9); 0.5 0.5 zeros(1, 9)]), 'an array normalized');
    check(isequal(capeOpenComposition(h, struct('methane', [3; 1], 'ethane', 1), 'normalized'), ...
                  [0.75 0.25 zeros(1, 9); 0.5 0.5 zeros(1, 9)]), 'rows normalized');
    r = p.flash(struct('methane', 0.5, 'n_butane', 0.5), 'Temperature', 300, 'Pressure', 2e6);
    check(isequal(r, p.flash([0.5 0 0 0.5 zeros(1, 7)], 'Temperature', 300, 'Pressure', 2e6)), 'flash');
end

function what_is_no_composition_is_told(toolbox)
    p = opened();
    h = p.Handle;
    cases = {
        'Composition', 'The package has no compound "..."', @() capeOpenComposition(h, struct('water', 1))
        'Composition', '"..." may be ...', @() capeOpenComposition(h, {'C4H10', 1, 'methane', 1})
        'Composition', 'The compound "..." is there twice', @() capeOpenComposition(h, struct('CH4', 1, 'methane', 1))
        'Composition', '... names of compounds, but ... amounts', @() capeOpenComposition(h, {{'methane', 'ethane'}, [1 2 3]})
        'Composition', 'The compound "..." has ... amounts in a composition of ...', @() capeOpenComposition(h, struct('methane', [1; 2; 3], 'ethane', [1; 2]))
        'Composition', 'The compound "..." has ... amounts in a composition of ...', @() capeOpenComposition(h, {'methane', [], 'ethane', 1})
        'Composition', 'A composition by names has a name and an amount for each compound', @() capeOpenComposition(h, {'methane', 1, 'ethane'})
        'Composition', 'Amounts of a composition that is normalized have to add up to more than zero', @() capeOpenComposition(h, struct('methane', 0), 'normalized')
        'Composition', 'Expected ''normalized'' or nothing behind the amounts', @() capeOpenComposition(h, struct('methane', 1), 'normal')
        'Composition', 'Invalid property package handle', @() capeOpenComposition(int32(-1), struct('methane', 1))
        'Composition', 'Invalid number of arguments for capeOpenComposition', @() capeOpenComposition(h)
    };
    check_messages(toolbox, cases);
    message = message_of(@() capeOpenComposition(h, struct('metane', 1)));
    check(strcmp(message, sprintf('The package has no compound "metane"\n  Near it there are methane, ethane')), '%s', message);
    message = message_of(@() capeOpenComposition(h, struct('methane', [1; 2; 3], 'ethane', [1; 2])));
    check(strcmp(message, 'The compound "ethane" has 2 amounts in a composition of 3 rows'), '%s', message);
    message = message_of(@() capeOpenComposition(h, struct('C4H10', 1)));
    check(strcmp(message, '"C4H10" may be n-butane or isobutane'), '%s', message);
end

% A row that fails has NaN; the others are what they are without it.
function failing_rows_can_be_nan(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    T = (250:2:448).';
    [density, fugacity] = p.single({'density', 'fugacity'}, T, 1e5, Z, 'Vapor');
    bad = [1 17 18 55 100];
    T(bad) = [NaN -1 0 NaN 1e9];
    check(~isempty(message_of(@() p.single('density', T, 1e5, Z, 'Vapor'))), 'there is no error');
    [a, b] = p.single({'density', 'fugacity'}, T, 1e5, Z, 'Vapor', 'NaN');
    density(bad) = NaN;
    fugacity(bad, :) = NaN;
    check(isequaln(a, density) && isequaln(b, fugacity), 'other rows');
    a = p.single('fugacity', [NaN; -1], 1e5, Z, 'Vapor', 'nan');
    check(isequaln(a, NaN(2, 11)), 'all rows fail');
    a = p.single('density', 300, 1e5, [Z; -Z; Z], 'Vapor', 'NaN');
    check(isequaln(a, [1; NaN; 1] * p.single('density', 300, 1e5, Z, 'Vapor')), 'a composition');
    check(isequaln(p.single('density', single(-300), 1e5, Z, 'Vapor', 'NaN'), NaN), 'one row');
    check(strcmp(words_of(@() p.single('density', T, 1e5, Z, 'Gas', 'NaN')), 'Invalid phase ID'), 'an argument is wrong');
    check(strcmp(words_of(@() p.single('density', T, 1e5, Z, 'Vapor', 'zero')), 'Invalid number of arguments for Verdanth'), 'another word');
end

run_test(argv());
