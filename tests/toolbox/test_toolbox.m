% The functions of the commands, one test each:  octave-cli tests/toolbox/test_toolbox.m TEST TOOLBOX VERDANTH
% TOOLBOX is the folder of the functions, VERDANTH the one where `Verdanth` is found.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% The commands by their codes, and how their outputs reach the library.
function commands = command_table()
    plain = {1, 'ManagerList'; 2, 'PackageList'; 3, 'Create'; 5, 'HandleList'; 6, 'Name'; 7, 'CompoundList'
             8, 'PhaseList'; 9, 'PhaseState'; 10, 'ConstantPropList'; 11, 'TDependentPropList'
             12, 'PDependentPropList'; 13, 'SinglePhasePropList'; 14, 'TwoPhasePropList'; 15, 'FlashPropList'
             16, 'Constant'; 19, 'PropUnit'; 26, 'Version'};
    silent = {4, 'Release'; 17, 'Warnings'; 18, 'Basis'; 28, 'Help'};
    counted = {20, 'TDependentProp'; 21, 'PDependentProp'; 22, 'SinglePhaseProp'; 23, 'TwoPhaseProp'};
    commands = struct('plain', {plain}, 'silent', {silent}, 'counted', {counted});
end

function check_call(name, code, inputs, outputs)
    global recorded_inputs recorded_outputs
    check(isequal(recorded_inputs{1}, code) && isa(recorded_inputs{1}, 'double'), ...
          '%s calls command %g', name, recorded_inputs{1});
    check(isequal(recorded_inputs(2:end), reshape(inputs, 1, numel(inputs))), '%s changes its arguments', name);
    check(recorded_outputs == outputs, '%s asks for %d outputs, not %d', name, recorded_outputs, outputs);
end

function every_function_has_a_command(toolbox)
    table = command_table();
    names = [table.plain(:, 2); table.silent(:, 2); table.counted(:, 2); {'Flash'; 'MultiFlash'}];
    files = dir(fullfile(toolbox, '*.m'));
    on_top = {'Backend'; 'Check'; 'Compare'; 'Composition'; 'LastResults'; 'MultiFlashParallel'; 'Ph'; 'PhaseEnvelope'; 'Pxy'; 'Ts'; 'Txy'; 'Units'};
    expected = sort([strcat('capeOpen', [names; on_top], '.m'); {'Contents.m'}]);
    check(isequal(sort({files.name}.'), expected), 'the functions are not those of the commands');
end

function arguments_are_passed_on_as_they_are(toolbox)
    table = command_table();
    rows = [table.plain; table.silent];
    lists = {{}, {'a'}, {int32(3), {'x', 'y'}, [], true}, num2cell(1:12)};
    for k = 1:size(rows, 1)
        name = ['capeOpen' rows{k, 2}];
        for l = 1:numel(lists)
            given = lists{l};
            if strcmp(name, 'capeOpenWarnings')
                given(strcmp(given, 'a')) = {0}; % it looks at words itself
            end
            feval(name, given{:});
            check_call(name, rows{k, 1}, given, double(k <= size(table.plain, 1)));
        end
    end
end

function too_many_outputs_reach_the_library(toolbox)
    table = command_table();
    for k = 1:size(table.plain, 1)
        name = ['capeOpen' table.plain{k, 2}];
        if strcmp(name, 'capeOpenVersion') % has a second one of its own
            [a, b, c] = feval(name, 'x');
            check_call(name, table.plain{k, 1}, {'x'}, 3);
        else
            [a, b] = feval(name, 'x');
            check_call(name, table.plain{k, 1}, {'x'}, 2);
        end
    end
    for k = 1:size(table.silent, 1)
        name = ['capeOpen' table.silent{k, 2}];
        a = feval(name, 3);
        check_call(name, table.silent{k, 1}, {3}, 1);
    end
    [a, b, c, d, e, f] = capeOpenFlash('x');
    check_call('capeOpenFlash', 24, {'x'}, 6);
end

function the_number_of_outputs_goes_through_as_an_argument(toolbox)
    global next_answer
    table = command_table();
    for k = 1:size(table.counted, 1)
        name = ['capeOpen' table.counted{k, 2}];
        next_answer = {10};
        feval(name, 'x', 'y');
        check_call(name, table.counted{k, 1}, {0, 'x', 'y'}, 1);
        next_answer = {10; 20; 30};
        [a, b, c] = feval(name, int32(1), {'p' 'q' 'r'});
        check_call(name, table.counted{k, 1}, {3, int32(1), {'p' 'q' 'r'}}, 1);
        check(isequal({a, b, c}, {10, 20, 30}), '%s mixes up its results', name);
        next_answer = {10};
        a = feval(name);
        check_call(name, table.counted{k, 1}, {1}, 1);
    end
end

function a_flash_always_asks_for_its_five_results(toolbox)
    capeOpenFlash(1, 2, 3, 4, 5, 6, 7);
    check_call('capeOpenFlash', 24, {1, 2, 3, 4, 5, 6, 7}, 5);
    for wanted = 1:5
        results = cell(1, wanted);
        [results{:}] = capeOpenFlash(1, 2, 3, 4, 5, 6, 7);
        check_call('capeOpenFlash', 24, {1, 2, 3, 4, 5, 6, 7}, 5);
        check(isequal(results, num2cell(1:wanted)), 'the results are mixed up');
    end
end

function a_batch_of_flashes_puts_the_number_of_outputs_before_the_names(toolbox)
    global next_answer
    next_answer = {[1; 2]; [3; 4]};
    [a, b] = capeOpenMultiFlash(1, 2, 3, 4, 5, 6, 7, {'p', 'q'});
    check_call('capeOpenMultiFlash', 25, {1, 2, 3, 4, 5, 6, 7, 2, {'p', 'q'}}, 1);
    check(isequal({a, b}, next_answer.'), 'the results are mixed up');
    next_answer = {5};
    a = capeOpenMultiFlash(1, 2, 3, 4, 5, 6, 7, 'p', 9);
    check_call('capeOpenMultiFlash', 25, {1, 2, 3, 4, 5, 6, 7, 1, 'p', 9}, 1);
    capeOpenMultiFlash();
    check_call('capeOpenMultiFlash', 25, {0}, 1);
    capeOpenMultiFlash(1, 2);
    check_call('capeOpenMultiFlash', 25, {1, 2, 0}, 1);
end

function every_example_runs_and_leaves_no_package_open(toolbox)
    set(0, 'DefaultFigureVisible', 'off');
    files = dir(fullfile(toolbox, 'capeOpen*.m'));
    for k = 1:numel(files)
        code = example_of(fullfile(toolbox, files(k).name));
        try
            shown = evalc(code);
            close all
        catch problem
            error('the example of %s fails: %s', files(k).name, problem.message);
        end
        quiet = {'capeOpenRelease.m', 'capeOpenWarnings.m'};
        check(~isempty(shown) ~= ismember(files(k).name, quiet), '%s shows this: %s', files(k).name, shown);
        check(isempty(capeOpenHandleList()), '%s leaves a package open', files(k).name);
    end
end

% The scripts in the pages of the guide, one after the other.
function the_scripts_of_the_guide_run(toolbox)
    addpath(fullfile(fileparts(mfilename('fullpath')), 'no_plots'));
    for page = {'index', 'arrays', 'basis', 'examples', 'diagrams', 'package', 'results', 'places', 'parallel', 'checking'}
        run_script(page{1}, script_of(toolbox, page{1}));
    end
    report = fullfile(tempdir(), 'natural-gas.html');
    check(exist(report, 'file') == 2, 'no report is written');
    delete(report);
end

% The page on pictures draws and saves them. Another device makes the same without Ghostscript.
function the_pictures_of_the_guide_are_saved(toolbox)
    graphics_toolkit('gnuplot');
    set(0, 'DefaultFigureVisible', 'off');
    warning('off', 'all');
    code = strrep(script_of(toolbox, 'pictures'), '''-dpng''', '''-dpngcairo''');
    saved = strrep(code, 'delete(file)', 'sizes(end + 1) = stat(file).size; delete(file)');
    run_script('pictures', ['sizes = []; ' saved 'check(numel(sizes) == 2 && all(sizes > [1000, 200]), ''%d '', sizes);']);
    close all
end

function code = script_of(toolbox, page)
    text = fileread(fullfile(toolbox, '..', 'docs', 'pages', [page '.md']));
    blocks = regexp(text, '```matlab\n(.*?)```', 'tokens');
    check(~isempty(blocks), '%s has no script', page);
    code = strjoin([blocks{:}], '\n');
end

function run_script(page, code)
    try
        evalc(code);
    catch problem
        error('the script of %s fails: %s', page, problem.message);
    end
    check(isempty(capeOpenHandleList()), '%s leaves a package open', page);
end

function the_units_in_the_guide_are_those_of_the_library(toolbox)
    guide = fullfile(fileparts(which('Verdanth')), 'guide', 'chm'); % made beside the library
    rows = regexp(fileread(fullfile(guide, 'properties.html')), '<tr[^>]*>\s*(<td>.*?)</tr>', 'tokens');
    rows = cellfun(@(row) cells_of(row{1}), rows, 'UniformOutput', false);
    rows = rows(cellfun(@numel, rows) == 4);
    check(numel(rows) == 121, 'there are %d rows', numel(rows));
    bases = {'mole', 'mass'};
    for b = 1:2
        capeOpenBasis(bases{b});
        for k = 1:numel(rows)
            unit = capeOpenPropUnit(rows{k}{1});
            check(strcmp(unit, rows{k}{2 + b}) || isempty(unit) && strcmp(rows{k}{2 + b}, 'none'), ...
                  '%s basis: %s is in "%s"', bases{b}, rows{k}{1}, unit);
        end
    end
end

% The texts in a row of a table of HTML.
function texts = cells_of(row)
    cells = regexp(row, '<td>(.*?)</td>', 'tokens');
    texts = cellfun(@(cell) regexprep(cell{1}, '<[^>]*>|\n', ''), cells, 'UniformOutput', false);
end

function the_words_of_errors_arrive_unchanged_and_stand_in_the_help(toolbox)
    check(strcmp(words_of(@() capeOpenCompoundList(int32(-1))), 'Invalid property package handle'), 'unopened');
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    flash = @(varargin) capeOpenFlash(h, varargin{:});
    batch = @(varargin) capeOpenMultiFlash(h, varargin{:});
    property = @(varargin) capeOpenSinglePhaseProp(h, varargin{:});
    pair = @(varargin) capeOpenTwoPhaseProp(h, varargin{:});
    T = 'Temperature'; P = 'Pressure'; U = 'Unspecified';
    cases = {
        'PackageList', 'Expected string for argument', @() capeOpenPackageList(1)
        'PackageList', 'no such package manager: "..."', @() capeOpenPackageList('nobody')
        'Create', 'Expected string for package manager name', @() capeOpenCreate(1, 'a')
        'Create', 'Expected string for package name', @() capeOpenCreate('a', 1)
        'Create', 'no such package manager: "..."', @() capeOpenCreate('verdanth natural gas (stand-alone)', '')
        'Create', 'package creation failed: ...', @() capeOpenCreate('Verdanth Reference Packages', 'Sea water')
        'Release', 'Invalid property package handle', @() capeOpenRelease(double(h))
        'PhaseState', 'Expected string value for phase ID', @() capeOpenPhaseState(h, 1)
        'PhaseState', 'Undefined phase', @() capeOpenPhaseState(h, 'Solid')
        'Constant', 'Expected a string value for property name', @() capeOpenConstant(h, 1)
        'Constant', 'GetCompoundConstant failed: ...', @() capeOpenConstant(h, 'charge')
        'Warnings', 'Invalid number of arguments for Verdanth', @() capeOpenWarnings()
        'Basis', 'Expected string value ''mole'' or ''mass'' as argument', @() capeOpenBasis('molar')
        'PropUnit', 'Expected string value for property name', @() capeOpenPropUnit(1)
        'PropUnit', 'unknown / unsupported property', @() capeOpenPropUnit('colour')
        'TDependentProp', 'Expected string or cell array of strings for property names', @() capeOpenTDependentProp(h, 1, 300)
        'TDependentProp', 'Expected column array for temperatures', @() capeOpenTDependentProp(h, 'idealGasHeatCapacity', [300 310])
        'TDependentProp', 'GetTDependentProperty failed at ...', @() capeOpenTDependentProp(h, 'vaporPressure', 2000)
        'PDependentProp', 'Expected column array for pressures', @() capeOpenPDependentProp(h, 'meltingTemperature', [1 2])
        'PDependentProp', 'GetPDependentProperty failed at ...', @() capeOpenPDependentProp(h, 'meltingTemperature', 1e5)
        'SinglePhaseProp', 'Expected string or cell array of strings for property names', @() property(1, 300, 1e5, X, 'Vapor')
        'SinglePhaseProp', 'Expected column array for temperatures', @() property('density', [300 310], 1e5, X, 'Vapor')
        'SinglePhaseProp', 'Inconsistent number of temperatures and pressures', @() property('density', [300; 310], [1e5; 2e5; 3e5], X, 'Vapor')
        'SinglePhaseProp', 'Invalid number of columns for compositions: must match number of compounds', @() property('density', 300, 1e5, X(1:5), 'Vapor')
        'SinglePhaseProp', 'Inconsistent number of temperatures, pressures and compositions', @() property('density', [300; 310; 320], 1e5, [X; X], 'Vapor')
        'SinglePhaseProp', 'Invalid phase ID', @() property('density', 300, 1e5, X, 'Solid')
        'SinglePhaseProp', 'Invalid / unsupported 1-phase property: ...', @() property('colour', 300, 1e5, X, 'Vapor')
        'SinglePhaseProp', 'Property calculations cannot be performed at multiple conditions if any property has matrix dimensions', @() property('diffusionCoefficient', [300; 310], 1e5, X, 'Vapor')
        'SinglePhaseProp', 'CalcSinglePhaseProp failed, at ... Pa, at ... K: ...', @() property('osmoticCoefficient', [300; 310], [1e5; 2e5], X, 'Vapor')
        'TwoPhaseProp', 'Invalid phase ID 1', @() pair('kvalue', 300, 1e5, X, X, 'Solid', 'Vapor')
        'TwoPhaseProp', 'Phases for two-phase property cannot be the same', @() pair('kvalue', 300, 1e5, X, X, 'Vapor', 'vapor')
        'TwoPhaseProp', 'Invalid / unsupported 2-phase property: ...', @() pair('density', 300, 1e5, X, X, 'Vapor', 'Liquid')
        'TwoPhaseProp', 'CalcTwoPhaseProp failed, at ... Pa, at ... K: ...', @() pair('kvalue', [5; 6], [1e5; 2e5], X, X, 'Vapor', 'Liquid')
        'Flash', 'Invalid number of values for compositions: must match number of compounds', @() flash(X(1:5), T, 220, P, 1e5, U)
        'Flash', 'Invalid number of values for value 1: scalar expected', @() flash(X, T, [220 230], P, 1e5, U)
        'Flash', 'Expected string value for property 1', @() flash(X, 1, 220, P, 1e5, U)
        'Flash', 'Not a valid flash property: ... (use capeOpenFlashPropList for list of valid properties)', @() flash(X, 'density', 220, P, 1e5, U)
        'Flash', 'Expected string value for solution type', @() flash(X, T, 220, P, 1e5, 1)
        'Flash', 'CalcEquilibrium failed: ...', @() flash(X, T, 220, 'enthalpy', 1e9, U)
        'MultiFlash', 'Inconsistent number of rows for compositions and constraint values', @() batch(X, T, [1; 2; 3], P, [1; 2], U, P)
        'MultiFlash', 'Expected column vector for value 1', @() batch(X, T, [220 230], P, 1e5, U, P)
        'MultiFlash', 'Not a valid flash property: ... (use capeOpenFlashPropList for list of valid properties)', @() batch(X, 'density', 220, P, 1e5, U, P)
        'MultiFlash', 'Invalid / unsupported flash property: ...', @() batch(X, T, 220, P, 1e5, U, 'density')
    };
    check_messages(toolbox, cases);
    capeOpenRelease(h);
end

function text = count_told(name, least, most, came)
    counts = strjoin(arrayfun(@num2str, unique([least most]), 'UniformOutput', false), ' or ');
    noun = 'arguments';
    if most == 1
        noun = 'argument';
    end
    text = sprintf('  %s takes %s %s, and %d came:', name, counts, noun, came);
end

% The arguments as the help has them: one fewer, one more, and a handle of no package.
function every_function_refuses_a_wrong_number_of_arguments_and_a_wrong_handle(toolbox)
    table = command_table();
    names = [table.plain(:, 2); table.silent(:, 2); table.counted(:, 2); {'Flash'; 'MultiFlash'}];
    check(numel(names) == 27, '%d functions', numel(names));
    with_handle = 0;
    for k = 1:numel(names)
        name = ['capeOpen' names{k}];
        lines_of_help = strsplit(fileread(fullfile(toolbox, [name '.m'])), '\n');
        listed = regexp(lines_of_help{4}, [name '\((.*)\)$'], 'tokens', 'once');
        arguments_of_help = strsplit(listed{1}, ', ');
        count = numel(arguments_of_help) - isempty(listed{1});
        least = count - any(ismember({'solution', 'failing'}, arguments_of_help)); % these may be left out
        for wrong = setdiff([least - 1, count + 1], -1)
            given = [{int32(-1)}, repmat({'x'}, 1, count)](1:wrong);
            lines = strsplit(message_of(@() feval(name, given{:})), '\n');
            check(strcmp(lines{1}, 'Invalid number of arguments for Verdanth'), '%s with %d arguments: %s', name, wrong, lines{1});
            check(strcmp(lines{2}, count_told(name, least, count, wrong)), '%s', lines{2});
            check(strcmp(strtrim(lines{3}), strtrim(lines_of_help{4}(2:end))), '%s', lines{3});
        end
        if strcmp(arguments_of_help{1}, 'handle')
            given = [{int32(-1)}, repmat({'x'}, 1, least - 1)];
            message = words_of(@() feval(name, given{:}));
            check(strcmp(message, 'Invalid property package handle'), '%s: %s', name, message);
            with_handle = with_handle + 1;
        end
    end
    check(with_handle == 18, '%d functions take a handle', with_handle);
end

function text_of_any_alphabet_passes(toolbox)
    check(strcmp(words_of(@() capeOpenPackageList('Gärung 水')), 'no such package manager: "Gärung 水"'), 'changed');
end

function settings_start_anew_after_clearing(toolbox)
    capeOpenBasis('mass');
    check(strcmp(capeOpenPropUnit('density'), 'kg / m3'), 'mass basis');
    clear Verdanth
    check(strcmp(capeOpenPropUnit('density'), 'mol / m3'), 'mole basis');
end

function warnings_come_as_warnings(toolbox)
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    lastwarn('');
    capeOpenWarnings(0);
    v = capeOpenMultiFlash(h, X, 'Temperature', [700; 710], 'vaporFraction', 0.5, 'Unspecified', 'Pressure');
    check(all(isnan(v)) && numel(v) == 2 && isempty(lastwarn()), 'without warnings');
    capeOpenWarnings(uint8(1));
    shown = evalc('capeOpenMultiFlash(h, X, ''Temperature'', [700; 710], ''vaporFraction'', 0.5, ''Unspecified'', ''Pressure'');');
    check(strncmp(lastwarn(), 'CAPE-OPEN: Flash failed in 2 of 2 rows, which specify Temperature and vaporFraction:', 83), ...
          'with warnings: %s', lastwarn());
    capeOpenRelease(h);
end

% Arguments of classes that the library has no use for are refused by it, and never misread.
function classes_of_arguments_are_told_apart(toolbox)
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    density = @(T, X) capeOpenSinglePhaseProp(h, 'density', T, 1e5, X, 'Vapor');
    expected = density(300, X);
    check(isequal(density(300:300, X), expected), 'a range is no array');
    for wrong = {true, 300 + 1i, @sin}
        check(strcmp(words_of(@() density(wrong{1}, X)), 'Expected double precision vector for temperatures'), ...
              'a %s is taken', class(wrong{1}));
    end
    check(strcmp(words_of(@() capeOpenName(uint32(h))), 'Invalid property package handle'), 'uint32');
    check(strcmp(words_of(@() capeOpenPropUnit(struct())), 'Expected string value for property name'), 'struct');
    check(strcmp(capeOpenPropUnit({'density'}), 'mol / m3'), 'one-element cell');
    capeOpenRelease(h);
end

function errors_carry_the_identifier_of_the_library(~)
    try
        capeOpenName(1);
        identifier = 'none';
    catch failure
        identifier = failure.identifier;
    end
    check(strcmp(identifier, 'Verdanth:error'), 'identifier "%s"', identifier);
end

% A number of any class tells whether warnings are wanted.
function numbers_of_any_class_are_read(~)
    types = {'int8', 'uint8', 'int16', 'uint16', 'int32', 'uint32', 'int64', 'uint64', 'single', 'double', 'logical'};
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    for type = types
        for wanted = [0 1]
            capeOpenWarnings(feval(type{1}, wanted));
            lastwarn('');
            evalc('capeOpenMultiFlash(h, X, ''Temperature'', 710, ''vaporFraction'', 0.5, ''Unspecified'', ''Pressure'');');
            check(wanted ~= isempty(lastwarn()), '%s %d', type{1}, wanted);
        end
    end
    capeOpenRelease(h);
end

function clearing_everything_in_mid_use_closes_the_packages(~)
    capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    clear all % the functions of this file go, too
    assert(isempty(capeOpenHandleList()), 'a package is still open');
    assert(numel(capeOpenCompoundList(capeOpenCreate('Verdanth Reference Packages', 'Natural gas'))) == 11, 'compounds');
end

function a_thousand_packages_come_and_go(~)
    for k = 1:1000
        capeOpenRelease(capeOpenCreate('Verdanth Reference Packages', 'Natural gas'));
    end
    check(isempty(capeOpenHandleList()), 'a package is still open');
end

function a_hundred_thousand_conditions_take_one_call(~)
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    T = linspace(250, 400, 100000)';
    v = capeOpenSinglePhaseProp(h, 'density', T, 1e5, X, 'Vapor');
    check(isequal(size(v), size(T)), 'size');
    for k = [1 12345 100000]
        check(v(k) == capeOpenSinglePhaseProp(h, 'density', T(k), 1e5, X, 'Vapor'), 'row %d', k);
    end
    capeOpenRelease(h);
end

run_test(argv());
