% What the functions say beyond the library's words, one test each:  octave-cli tests/toolbox/test_words.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function h = opened()
    [manager, package] = natural_gas();
    h = capeOpenCreate(manager, package);
end

% Rows of an action and the lines of its error.
function check_lines(cases)
    for k = 1:size(cases, 1)
        identifier = '';
        try
            cases{k, 1}();
            message = 'none';
        catch problem
            message = problem.message;
            identifier = problem.identifier;
        end
        check(strcmp(message, strjoin(cases{k, 2}, '\n  ')), 'case %d: %s', k, message);
        check(strcmp(identifier, 'Verdanth:error'), 'case %d: identifier %s', k, identifier);
    end
end

function a_wrong_number_of_arguments_shows_the_usage(~)
    h = opened();
    count = 'Invalid number of arguments for Verdanth';
    flash = '[phases, fractions, X, T, P] = capeOpenFlash(handle, Z, name1, value1, name2, value2, solution)';
    check_lines({
        @() capeOpenFlash(h, 1), {count, 'capeOpenFlash takes 6 or 7 arguments, and 2 came:', flash}
        @() capeOpenRelease(), {count, 'capeOpenRelease takes 1 argument, and 0 came:', 'capeOpenRelease(handle)'}
        @() capeOpenManagerList(3), {count, 'capeOpenManagerList takes 0 arguments, and 1 came:', 'managers = capeOpenManagerList()'}
        @() cell(capeOpenBasis('mole')), {'Invalid number of output arguments for Verdanth', ...
            'More results are asked for than capeOpenBasis has:', 'capeOpenBasis(basis)'}
    });
end

function what_came_in_place_of_a_handle_is_told(~)
    h = opened();
    wrong = 'Invalid property package handle';
    capeOpenRelease(h);
    released = sprintf('No package is open with the handle %d: it was released, or Verdanth was cleared', h);
    class_of = @(words) ['What came as the handle is ' words '; it is the int32 that capeOpenCreate gave'];
    check_lines({
        @() capeOpenName(h), {wrong, released}
        @() capeOpenName(7), {wrong, class_of('a double')}
        @() capeOpenName('Natural gas'), {wrong, class_of('1-by-11 char')}
        @() capeOpenFlash({h}, 1, 'a', 1, 'b', 1), {wrong, class_of('a cell')}
        @() capeOpenCompoundList([h h]), {wrong, '2 handles came; one is needed'}
    });
end

function phases_there_are_are_told(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    there = @(label) ['The package has no phase ''' label '''; there are Vapor, Liquid, Liquid2'];
    check_lines({
        @() capeOpenSinglePhaseProp(h, 'density', 300, 1e5, Z, 'vapour'), {'Invalid phase ID', there('vapour')}
        @() capeOpenTwoPhaseProp(h, 'kvalue', 300, 1e5, Z, Z, 'Vapor', 'Oil'), {'Invalid phase ID 2', there('Oil')}
        @() capeOpenTwoPhaseProp(h, 'kvalue', 300, 1e5, Z, Z, 'Gas', 'Oil'), {'Invalid phase ID 1', there('Gas')}
        @() capeOpenPhaseState(h, {'Solid'}), {'Undefined phase', there('Solid')}
    });
end

function shapes_are_told(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    width = 'Invalid number of columns for compositions: must match number of compounds';
    property = @(T, P, X) capeOpenSinglePhaseProp(h, 'density', T, P, X, 'Vapor');
    check_lines({
        @() property(300, 1e5, Z.'), {width, 'X: 1 column came, 11 are needed, one for each compound; is it transposed?'}
        @() property(300, 1e5, Z(1:4)), {width, 'X: 4 columns came, 11 are needed, one for each compound'}
        @() capeOpenFlash(h, 1, 'Temperature', 300, 'Pressure', 1e5), ...
            {'Invalid number of values for compositions: must match number of compounds', 'Z: 1 value came, 11 are needed, one for each compound'}
        @() property([300 310], 1e5, Z), {'Expected column array for temperatures', 'T is 1-by-2; a column is made by (:)'}
        @() capeOpenMultiFlash(h, Z, 'Temperature', 300, 'Pressure', 1:3, 'enthalpy'), ...
            {'Expected column vector for value 2', 'values2 is 1-by-3; a column is made by (:)'}
        @() property([300; 310], [1; 2; 3], Z), {'Inconsistent number of temperatures and pressures', ...
            'Rows: T has 2, P has 3, X has 1; each has as many as the others, or one'}
    });
end

function numbers_that_are_none_are_found(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    Y = [Z; Z; Z];
    Y(3, 4) = NaN;
    property = @(T, P, X) capeOpenSinglePhaseProp(h, 'density', T, P, X, 'Vapor');
    second = @(action) strsplit(message_of(action), '\n  '){2};
    cases = {
        @() property([300; NaN], 1e5, Z), 'The temperature in row 2 is NaN'
        @() property(300, -1e5, Z), 'The pressure is -100000'
        @() property(300, [1e5; 2e5; Inf], Z), 'The pressure in row 3 is Inf'
        @() property(300, 1e5, Y), 'X of n-butane in row 3 is NaN'
        @() property(300, 1e5, -Z), 'X of methane is -0.8'
        @() property(300, 1e5, 0 * Z), 'X is zero for all compounds'
        @() capeOpenFlash(h, Z, 'Pressure', 1e5, 'Temperature', NaN), 'The temperature is NaN'
        @() capeOpenFlash(h, Z, 'Pressure', 1e5, 'Enthalpy', NaN), 'The enthalpy is NaN'
        @() capeOpenTDependentProp(h, 'vaporPressure', [300; -2]), 'The temperature in row 2 is -2'
    };
    for k = 1:size(cases, 1)
        check(strcmp(second(cases{k, 1}), cases{k, 2}), 'case %d: %s', k, second(cases{k, 1}));
    end
end

function classes_are_told(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    property = @(names, T, phase) capeOpenSinglePhaseProp(h, names, T, 1e5, Z, phase);
    swapped = 'A number stands where a name belongs; the name comes first: ''Temperature'', 220';
    check_lines({
        @() capeOpenFlash(h, Z, 220, 'Temperature', 'Pressure', 1e5), {'Invalid number of values for value 1: scalar expected', swapped}
        @() capeOpenFlash(h, Z, 'Pressure', 1e5, 220, 'Temperature'), {'Invalid number of values for value 2: scalar expected', swapped}
        @() capeOpenFlash(h, Z, 3, 220, 'Pressure', 1e5), {'Expected string value for property 1', 'name1 is a double; text is needed'}
        @() property('density', true, 'Vapor'), {'Expected double precision vector for temperatures', 'T is a logical; numbers are needed'}
        @() property('density', 300 + 1i, 'Vapor'), {'Expected double precision vector for temperatures', ...
            'T is a double with an imaginary part; numbers are needed'}
        @() property('density', 300, @sin), {'Expected string value for phase ID', 'phase is a function_handle; text is needed'}
        @() property(7, 300, 'Vapor'), {'Expected string or cell array of strings for property names', 'names is a double; text is needed'}
        @() capeOpenConstant(h, 1), {'Expected a string value for property name', 'name is a double; text is needed'}
    });
end

function near_names_are_told(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    check_lines({
        @() capeOpenSinglePhaseProp(h, {'density', 'entalpy'}, 300, 1e5, Z, 'Vapor', 'x', 'y'), ...
            {'Invalid number of arguments for Verdanth', 'capeOpenSinglePhaseProp takes 6 or 7 arguments, and 8 came:', ...
             '[v1, v2, ...] = capeOpenSinglePhaseProp(handle, names, T, P, X, phase, failing)'}
        @() capeOpenSinglePhaseProp(h, 'desnity', 300, 1e5, Z, 'Vapor'), ...
            {'Invalid / unsupported 1-phase property: desnity', '''desnity'': near it there is density'}
        @() capeOpenSinglePhaseProp(h, 'colour', 300, 1e5, Z, 'Vapor'), ...
            {'Invalid / unsupported 1-phase property: colour', 'The package has no ''colour''; capeOpenSinglePhasePropList tells what it has'}
        @() capeOpenTwoPhaseProp(h, 'kvalues', 300, 1e5, Z, Z, 'Vapor', 'Liquid'), ...
            {'Invalid / unsupported 2-phase property: kvalues', '''kvalues'': near it there is kvalue'}
        @() capeOpenFlash(h, Z, 'Tempreture', 300, 'Pressure', 1e5), ...
            {'Not a valid flash property: Tempreture (use capeOpenFlashPropList for list of valid properties)', ...
             '''Tempreture'': near it there is Temperature'}
        @() capeOpenMultiFlash(h, Z, 'Temperature', 300, 'Pressure', 1e5, 'enthropy'), ...
            {'Invalid / unsupported flash property: enthropy', '''enthropy'': near it there are entropy, enthalpy, entropyF'}
        @() capeOpenPropUnit('densty'), {'unknown / unsupported property', '''densty'': near it there is density'}
    });
    second = @(action) strsplit(message_of(action), '\n  '){2};
    said = second(@() capeOpenConstant(h, 'criticalTemp'));
    check(strcmp(said, '''criticalTemp'': near it there is criticalTemperature'), '%s', said);
    said = second(@() capeOpenTDependentProp(h, 'vaporPresure', 300));
    check(strcmp(said, '''vaporPresure'': near it there is vaporPressure'), '%s', said);
end

% In Octave each comparison of two names takes milliseconds.
function names_of_other_lengths_are_not_compared(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    lengths = cellfun(@numel, capeOpenSinglePhasePropList(h));
    expected = nnz(abs(lengths - numel('densitty')) <= 2);
    check(expected > 0 && expected < numel(lengths) / 4, '%d of %d names', expected, numel(lengths));
    calls = calls_of('nearNames>editDistance', @() capeOpenSinglePhaseProp(h, 'densitty', 300, 1e5, Z, 'Vapor'));
    check(calls == expected, '%d names were compared, not %d', calls, expected);
end

% How often an action that fails calls a function.
function calls = calls_of(name, action)
    profile('on');
    message_of(action);
    profile('off');
    info = profile('info');
    calls = sum([info.FunctionTable(strcmp({info.FunctionTable.FunctionName}, name)).NumCalls]);
end

function lists_of_names_are_explained(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    T = [300; 310];
    names = {'density', 'diffusionCoefficient', 'fugacity.DmolFraction'};
    results = cell(1, 3);
    check_lines({
        @() numel(capeOpenSinglePhaseProp(h, {}, 300, 1e5, Z, 'Vapor')), {'Too many output arguments', 'The list of names is empty'}
        @() numel(capeOpenSinglePhaseProp(h, ' ', 300, 1e5, Z, 'Vapor')), {'Too many output arguments', 'The list of names is empty'}
        @() deal_two(h, Z), {'Too many output arguments', 'One result for each name: there is 1 name'}
        @() four_results(h, Z), ...
            {'Too many output arguments', 'One result for each name: there are 2 names'}
        @() three_results(h, names, T, Z), {['Property calculations cannot be performed at multiple conditions if any ' ...
            'property has matrix dimensions'], 'A value for each pair of compounds: diffusionCoefficient, fugacity.DmolFraction'}
        @() three_of_two_phases(h, T, Z), {['Property calculations cannot be performed at multiple conditions if any ' ...
            'property has matrix dimensions'], 'A value for each pair of compounds: kvalue.DmolFraction'}
    });
    calls = calls_of('explanation', @() three_results(h, names, T, Z));
    check(calls == 1, 'explained %d times', calls);
end

function four_results(h, Z)
    [a, b, c, d] = capeOpenMultiFlash(h, Z, 'Temperature', 300, 'Pressure', 1e5, 'enthalpy entropy');
end

function three_of_two_phases(h, T, Z)
    [a, b] = capeOpenTwoPhaseProp(h, 'kvalue kvalue.DmolFraction', T, 1e5, Z, Z, 'Vapor', 'Liquid');
end

function deal_two(h, Z)
    [a, b] = capeOpenSinglePhaseProp(h, 'density', 300, 1e5, Z, 'Vapor');
end

function three_results(varargin)
    [h, names, T, Z] = varargin{:};
    [a, b, c] = capeOpenSinglePhaseProp(h, names, T, 1e5, Z, 'Vapor');
end

function packages_there_are_are_told(~)
    [manager, package] = natural_gas();
    message = message_of(@() capeopen.Package(manager));
    for name = capeOpenPackageList(manager).'
        check(~isempty(strfind(message, ['"' name{1} '"'])), '%s is missing in %s', name{1}, message);
    end
    check(strcmp(strtok(message, "\n"), 'package creation failed: There is no package ""'), '%s', message);
    message = message_of(@() capeopen.Package());
    for part = {'capeopen.Package(manager, package)', 'capeopen.Package(name)', '"Verdanth Natural Gas (stand-alone)"', ['"' manager '"']}
        check(~isempty(strfind(message, part{1})), '%s is missing in %s', part{1}, message);
    end
    check_lines({
        @() capeOpenCreate(manager, 'Natural gass'), ...
            {'package creation failed: There is no package "Natural gass"', '"Verdanth Reference Packages" has "Natural gas"'}
        @() capeOpenPackageList('verdanth reference package'), ...
            {'no such package manager: "verdanth reference package"', 'There is "Verdanth Reference Packages"'}
    });
end

function warnings_go_off_by_words(~)
    h = opened();
    [~, ~, Z] = natural_gas();
    failing = 'capeOpenMultiFlash(h, Z, ''Temperature'', -5, ''Pressure'', 1e5, ''enthalpy'');';
    for word = {'off', 'on', 'OFF', 'On', false, true}
        capeOpenWarnings(word{1});
        lastwarn('');
        evalc(failing);
        check(isempty(lastwarn()) == any(strcmpi(word{1}, 'off') | isequal(word{1}, false)), '%s: %s', num2str(word{1}), lastwarn());
    end
    for wrong = {'no', '', [], {1}, @sin}
        words = message_of(@() capeOpenWarnings(wrong{1}));
        check(strcmp(words, 'Expected ''on'', ''off'', true or false as argument'), '%s', words);
    end
end

% MATLAB gives no identifier to the library's errors; the functions do. Whatever is in its words is no format.
function errors_without_identifier_get_the_librarys(toolbox)
    global failure
    failure = struct('identifier', '', 'message', 'GetConstPropList failed: 5 % of \n%s');
    check_lines({@() capeOpenConstantPropList(int32(3)), {failure.message}});
end

% The functions alone, with the guide in each place where it may lie, and a browser that is none.
function the_guide_is_opened_or_told(toolbox)
    above = tempname();
    clean_up = onCleanup(@() remove(above));
    folder = fullfile(above, 'toolbox');
    mkdir(above);
    mkdir(folder);
    copyfile(fullfile(toolbox, '*.m'), folder);
    copyfile(fullfile(toolbox, 'private'), folder);
    copyfile(fullfile(toolbox, '+capeopen'), folder);
    rmpath(toolbox);
    warning('off', 'Octave:shadowed-function');
    addpath(folder, fullfile(fileparts(mfilename('fullpath')), 'browser'));
    check_lines({
        @() capeOpenHelp(), {'Failed to load help file'}
        @() capeOpenHelp(1), {'Invalid number of arguments for Verdanth', 'capeOpenHelp takes 0 arguments, and 1 came:', 'capeOpenHelp()'}
    });
    for place = {fullfile(folder, 'html'), fullfile(folder, 'doc'), fullfile(above, 'doc'), ...
                 fullfile(above, 'build', 'linux', 'guide', 'html')}
        check_guide_in(place{1});
    end
end

function check_guide_in(folder)
    global opened_in_browser
    system(sprintf('mkdir -p "%s"', folder));
    page = fullfile(folder, 'index.html');
    fclose(fopen(page, 'w'));
    for screen = {'', ':7'}
        setenv('WAYLAND_DISPLAY', '');
        setenv('DISPLAY', screen{1});
        opened_in_browser = '';
        shown = evalc('capeOpenHelp()');
        check(strcmp(shown, sprintf('The guide: %s\n', page)), '%s', shown);
        expected = {'', ['file://' page]}{1 + ~isempty(screen{1})};
        check(strcmp(opened_in_browser, expected), 'browser: %s', opened_in_browser);
    end
    remove(folder);
end

function remove(folder)
    confirm_recursive_rmdir(false, 'local');
    rmdir(folder, 's');
end

function errors_of_others_pass_unchanged(toolbox)
    global failure
    failure = struct('identifier', 'Other:kind', 'message', 'not of the library');
    try
        capeOpenName(int32(3));
    catch problem
        check(strcmp(problem.identifier, 'Other:kind') && strcmp(problem.message, 'not of the library'), '%s', problem.message);
        return
    end
    check(false, 'there is no error');
end

function clearing_functions_before_an_object_is_silent(toolbox)
    [manager, package] = natural_gas();
    paths = sprintf('addpath(''%s'', ''%s'');', toolbox, fileparts(which('Verdanth')));
    code = sprintf('%s p = capeopen.Package(''%s'', ''%s''); clear functions; clear p; disp(numel(capeOpenHandleList()))', ...
                   paths, manager, package);
    [status, said] = system(sprintf('"%s" --quiet --norc --no-history --eval "%s" 2>&1', ...
                                    fullfile(OCTAVE_HOME(), 'bin', 'octave-cli'), code));
    check(status == 0 && strcmp(strtrim(said), '0'), '%s', said);
end

run_test(argv());
