% capeopen.Package, one test each:  octave-cli tests/toolbox/test_package_object.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function p = opened()
    [manager, package] = natural_gas();
    p = capeopen.Package(manager, package);
end

function properties_are_those_of_the_package(~)
    p = opened();
    check(strcmp(p.Name, 'Verdanth Reference Packages:Natural gas'), 'name: %s', p.Name);
    check(strcmp(p.Compounds{3}, 'propane') && numel(p.Compounds) == 11, 'compounds');
    check(isequal(p.Phases(:).', {'Vapor', 'Liquid', 'Liquid2'}), 'phases');
    check(isequal(size(p.MolecularWeights), [1 11]) && abs(p.MolecularWeights(1) - 16.043) < 2e-3, 'weights');
    check(isa(p.Handle, 'int32') && p.Handle == capeOpenHandleList(), 'handle');
    check(~isempty(message_of(@() setfield(p, 'Name', 'other'))), 'the name can be changed');
end

% Each method gives what the function of the same purpose gives.
function methods_do_what_the_functions_do(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    T = [280; 300];
    h = p.Handle;
    check(isequal(p.constant('criticalPressure'), capeOpenConstant(h, 'criticalPressure')), 'constant');
    check(isequal(p.tdep('idealGasHeatCapacity', T), capeOpenTDependentProp(h, 'idealGasHeatCapacity', T)), 'tdep');
    check(strcmp(words_of(@() p.pdep('meltingTemperature', 1e5)), ...
                 words_of(@() capeOpenPDependentProp(h, 'meltingTemperature', 1e5))), 'pdep');
    [a, b] = p.single('density enthalpy', T, 1e5, Z, 'Vapor');
    [c, d] = capeOpenSinglePhaseProp(h, 'density enthalpy', T, 1e5, Z, 'Vapor');
    check(isequal(a, c) && isequal(b, d), 'single');
    check(strcmp(words_of(@() p.twophase('kvalue', 300, 1e5, Z, Z, 'Solid', 'Vapor')), 'Invalid phase ID 1'), 'twophase');
    [a, b] = p.multiflash(Z, 'Temperature', [220; 230], 'Pressure', 40e5, 'Normal', 'vaporFraction enthalpy');
    [c, d] = capeOpenMultiFlash(h, Z, 'Temperature', [220; 230], 'Pressure', 40e5, 'Normal', 'vaporFraction enthalpy');
    check(isequal(a, c) && isequal(b, d), 'multiflash');
    check(isequal(p.multiflash(Z, 'Temperature', [220; 230], 'Pressure', 40e5, 'vaporFraction'), c), 'no solution');
    check(strcmp(p.unit('density'), 'mol / m3'), 'unit');
    check(strcmp(words_of(@() p.constant(1)), 'Expected a string value for property name'), 'words of errors');
end

function a_batch_runs_on_several_processors_when_asked(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    given = {Z, 'Temperature', linspace(200, 300, 120000).', 'Pressure', 40e5};
    [a, b] = p.multiflash(given{:}, 'vaporFraction enthalpy', 'Parallel', false);
    children = @() system(sprintf('pgrep -P %d octave > /dev/null', getpid())) == 0;
    check(~children(), 'workers without being asked for');
    [c, d] = p.multiflash(given{:}, 'Normal', 'vaporFraction enthalpy', 'Parallel', true);
    check(isequal({a, b}, {c, d}), 'results');
    check(nproc() == 1 || children(), 'no workers');
    c = p.multiflash(given{:}, 'vaporFraction enthalpy', 'parallel', true);
    check(isequal(a, c), 'without solution');
    check(strcmp(words_of(@() p.multiflash(given{:}, 'vaporFraction', 'Serial', true)), ...
                 'Invalid number of arguments for Verdanth'), 'another word');
end

function a_flash_is_a_struct(~)
    p = opened();
    [~, ~, Z] = natural_gas();
    [phases, fractions, X, T, P] = capeOpenFlash(p.Handle, Z, 'Temperature', 220, 'Pressure', 40e5, 'Normal');
    expected = struct('phases', {phases(:).'}, 'fractions', fractions(:).', 'compositions', X, 'T', T, 'P', P);
    check(isequal(p.flash(Z, 'Temperature', 220, 'Pressure', 40e5, 'Normal'), expected), 'with solution');
    r = p.flash(Z, 'Temperature', 220, 'Pressure', 40e5);
    check(isequal(r, expected), 'without solution');
    check(isequal(size(r.compositions), [2 11]) && isequal(size(r.phases), [1 2]) && isequal(size(r.fractions), [1 2]), 'sizes');
    v = p.single('density', r.T, r.P, r.compositions(1, :), r.phases{1});
    check(v > 3000 && v < 3100, 'a row of the compositions serves in the next call');
    check(strcmp(words_of(@() p.flash(Z(1:3), 'Temperature', 220, 'Pressure', 40e5)), ...
                 'Invalid number of values for compositions: must match number of compounds'), 'error');
end

function a_flash_without_result_shows_a_table(~)
    p = opened();
    shown = evalc('p.flash([0.5 0 0 0.5 0 0 0 0 0 0 0], ''Temperature'', 300, ''Pressure'', 20e5);');
    lines = strsplit(strtrim(shown), '\n');
    check(strcmp(lines{1}, 'T = 300 K, P = 2e+06 Pa'), 'first line: %s', lines{1});
    check(isequal(strsplit(strtrim(lines{2})), {'Vapor', 'Liquid'}), 'heads: %s', lines{2});
    check(numel(lines) == 14 && all(cellfun(@numel, lines(2:end)) == numel(lines{2})), 'columns: %s', shown);
    numbers = sscanf(lines{4}(20:end), '%f').';
    r = p.flash([0.5 0 0 0.5 0 0 0 0 0 0 0], 'Temperature', 300, 'Pressure', 20e5);
    check(strcmp(strtok(lines{4}), 'methane') && all(abs(numbers - r.compositions(:, 1).') <= 5.1e-7), 'row: %s', lines{4});
end

function it_prints_itself(~)
    p = opened();
    shown = evalc('p');
    for part = {'Verdanth Reference Packages:Natural gas', '11 compounds: methane, ethane,', '3 phases: Vapor, Liquid, Liquid2'}
        check(~isempty(strfind(shown, part{1})), '"%s" is missing in: %s', part{1}, shown);
    end
    delete(p);
    check(~isempty(strfind(evalc('disp(p)'), 'a package that was closed')), 'closed: %s', evalc('disp(p)'));
end

function it_is_released_when_the_variable_goes(~)
    p = opened();
    clear p
    check(isempty(capeOpenHandleList()), 'cleared');
    p = opened();
    p = 1;
    check(isempty(capeOpenHandleList()), 'overwritten');
    (@() numel(opened().Compounds))();
    check(isempty(capeOpenHandleList()), 'temporary');
    message_of(@fails_with_an_open_package);
    check(isempty(capeOpenHandleList()), 'left by an error');
    p = opened();
    delete(p);
    check(isempty(capeOpenHandleList()), 'deleted');
    check(strcmp(words_of(@() p.Name), 'Invalid property package handle'), 'used after all: %s', message_of(@() p.Name));
    clear p
end

function fails_with_an_open_package()
    p = opened();
    p.constant('colour');
end

function the_last_object_of_a_package_closes_it(~)
    p = opened();
    q = opened();
    r = p;
    clear p
    check(numel(q.Compounds) == 11, 'the other object has lost its package');
    clear q
    check(numel(r.Compounds) == 11, 'the copy has lost its package');
    clear r
    check(isempty(capeOpenHandleList()), 'it is still open');
end

function a_package_that_was_open_before_stays_open(~)
    [manager, package] = natural_gas();
    h = capeOpenCreate(manager, package);
    p = opened();
    q = opened();
    clear p q
    check(isequal(capeOpenHandleList(), h), 'it was closed');
    capeOpenRelease(h);
    p = opened();
    capeOpenRelease(p.Handle);
    clear p % nothing is left to release
    p = opened();
    clear p
    check(isempty(capeOpenHandleList()), 'it is still open');
end

function a_package_that_can_not_be_opened_leaves_nothing(~)
    check(strcmp(words_of(@() capeopen.Package('nobody', 'x')), 'no such package manager: "nobody"'), 'manager');
    check(strcmp(words_of(@() capeopen.Package(1, 'x')), 'Expected string for package manager name'), 'number');
    check(isempty(capeOpenHandleList()), 'something is open');
end

function a_stand_alone_package_needs_one_name(~)
    p = capeopen.Package('Verdanth Natural Gas (stand-alone)');
    check(strcmp(p.Name, 'Verdanth Natural Gas (stand-alone)'), 'name: %s', p.Name);
end

function a_thousand_objects_come_and_go(~)
    for k = 1:1000
        p = opened();
        clear p
    end
    check(isempty(capeOpenHandleList()), 'a package is still open');
end

function clearing_the_library_in_mid_use_does_no_harm(~)
    p = opened();
    clear Verdanth
    check(strcmp(words_of(@() p.Name), 'Invalid property package handle'), 'the package is still there');
    q = opened();
    clear p
    check(numel(q.Compounds) == 11, 'the new object has lost its package');
    clear all % the functions of this file go, too
    assert(isempty(capeOpenHandleList()), 'a package is still open');
    p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
    assert(numel(p.Compounds) == 11, 'compounds');
end

function the_example_of_the_help_runs(toolbox)
    shown = evalc(example_of(fullfile(toolbox, '+capeopen', 'Package.m')));
    check(~isempty(strfind(shown, 'density = 3034.8')), '%s', shown);
    check(~isempty(strfind(shown, 'T = -70 degC, P = 30 bar')), '%s', shown);
    check(isempty(capeOpenHandleList()), 'a package is still open');
end

run_test(argv());
