% Flashes on several processors, one test each:  octave-cli tests/toolbox/test_parallel.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% Both functions with the same arguments.
function [expected, found] = results_of(count, varargin)
    [manager, package] = natural_gas();
    h = capeOpenCreate(manager, package);
    expected = cell(1, count);
    found = cell(1, count);
    evalc('[expected{:}] = capeOpenMultiFlash(h, varargin{:});');
    capeOpenRelease(h);
    evalc('[found{:}] = capeOpenMultiFlashParallel(manager, package, varargin{:});');
end

function check_all_the_same()
    [~, ~, Z] = natural_gas();
    names = 'vaporFraction enthalpy entropy';
    for rows = [1 2 7 5000]
        T = linspace(150, 300, rows).';
        for k = [1 3]
            [expected, found] = results_of(k, Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', names);
            check(isequal(expected, found), '%d rows, %d results', rows, k);
        end
    end
    [expected, found] = results_of(2, repmat(Z, 50, 1), 'Pressure', linspace(1e5, 60e5, 50).', 'Temperature', 220, ...
                                   'Normal', {'entropy', 'Temperature'});
    check(isequal(expected, found), 'compositions in rows');
    weights = [0.3 0.1 0.1 0.1 0.1 0.1 0.1 0.1 0 0 0];
    capeOpenBasis('mass');
    [expected, found] = results_of(1, weights, 'Temperature', (200:300).', 'Pressure', 40e5, 'Unspecified', 'enthalpy');
    check(isequal(expected, found), 'mass basis');
    capeOpenBasis('mole');
    [expected, found] = results_of(1, weights, 'Temperature', (200:300).', 'Pressure', 40e5, 'Unspecified', 'enthalpy');
    check(isequal(expected, found), 'mole basis after mass basis');
    check(isempty(capeOpenHandleList()), 'a package is still open');
end

function results_are_those_of_the_serial_function(~)
    check(nproc() == 1 || exist(file_in_loadpath('parcellfun')) == 2 || ~isempty(pkg('list', 'parallel')), ...
          'the package parallel is missing');
    check_all_the_same();
end

function without_workers_results_are_the_same(~)
    addpath(fullfile(fileparts(mfilename('fullpath')), 'one_processor'));
    check(nproc() == 1, 'there are more');
    check_all_the_same();
end

% The way of MATLAB, with stand-ins for its pool; parfor is for in Octave.
function on_a_matlab_pool_results_are_the_same(~)
    global release_2016b
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    check_all_the_same();
    check_bar();
    release_2016b = true;
    check_all_the_same();
    check_bar();
end

function failures_are_warned_of_as_by_the_serial_function(~)
    [manager, package, Z] = natural_gas();
    T = (201:300).';
    T([30 31 77]) = [-3 -4 -5];
    given = {Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 'vaporFraction'};
    lastwarn('');
    h = capeOpenCreate(manager, package);
    serial = evalc('a = capeOpenMultiFlash(h, given{:});');
    shown = evalc('b = capeOpenMultiFlashParallel(manager, package, given{:});');
    check(isequaln(a, b) && isequal(find(isnan(b)).', [30 31 77]), 'rows');
    for failed = {'-3, ', '-4, ', '-5, '}
        words = ['CAPE-OPEN: Flash failed at ' failed{1}];
        check(numel(strfind(serial, words)) == 1 && numel(strfind(shown, words)) == 1, '"%s" in %s', words, shown);
    end
    check(strncmp(lastwarn(), 'CAPE-OPEN: Flash failed at -5, ', 31), 'last warning: %s', lastwarn());
    capeOpenRelease(h);
end

function check_bar()
    [manager, package, Z] = natural_gas();
    given = {Z, 'Temperature', (201:300).', 'Pressure', 40e5, 'Unspecified', 'enthalpy'};
    shown = evalc('capeOpenMultiFlashParallel(manager, package, given{:});');
    check(~isempty(regexp(shown, '^\|={40}\|$', 'once', 'lineanchors')), '%s', shown);
end

function a_bar_shows_the_progress(~)
    if nproc() > 1
        check_bar();
    end
end

function muted(action)
    evalc('action();');
end

function errors_are_those_of_the_serial_function(toolbox)
    [manager, package, Z] = natural_gas();
    T = (201:300).';
    call = @(varargin) capeOpenMultiFlashParallel(manager, package, varargin{:});
    cases = {
        'MultiFlashParallel', 'Invalid number of arguments for capeOpenMultiFlashParallel', @() capeOpenMultiFlashParallel(manager)
        'MultiFlashParallel', 'no such package manager: "..."', @() capeOpenMultiFlashParallel('nobody', package, Z, 'Temperature', T, 'Pressure', 1e5, '', 'enthalpy')
        'MultiFlashParallel', 'Inconsistent number of rows for compositions and constraint values', @() call(Z, 'Temperature', T, 'Pressure', [1e5; 2e5], 'Unspecified', 'enthalpy')
        'MultiFlash', 'Not a valid flash property: ... (use capeOpenFlashPropList for list of valid properties)', @() muted(@() call(Z, 'density', T, 'Pressure', 1e5, 'Unspecified', 'enthalpy'))
        'MultiFlash', 'Invalid / unsupported flash property: ...', @() muted(@() call(Z, 'Temperature', T, 'Pressure', 1e5, 'Unspecified', 'density'))
    };
    check_messages(toolbox, cases);
    check(isempty(capeOpenHandleList()), 'a package is still open');
end

run_test(argv());
