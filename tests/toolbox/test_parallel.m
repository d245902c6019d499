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
    check_many_rows();
    release_2016b = true;
    given = many_rows(2.5);
    [expected, found] = results_of(2, given{:});
    check(isequaln(expected, found), 'without queues');
end

% The processes of the package parallel.
function pids = workers()
    [~, text] = system(sprintf('pgrep -P %d octave', getpid()));
    pids = str2num(text).';
end

% Some seconds of work, so that workers pay, with failures in every block, and three in a row.
function given = many_rows(seconds)
    [manager, package, Z] = natural_gas();
    h = capeOpenCreate(manager, package);
    given = {Z, 'Temperature', linspace(200, 300, 5000).', 'Pressure', 40e5, 'Unspecified', 'vaporFraction enthalpy'};
    shortest = Inf;
    for k = 1:3 % as long on a machine that nothing else slows
        shortest = min(shortest, seconds_of(@() capeOpenMultiFlash(h, given{:})));
    end
    rows = ceil(5 * seconds / shortest) * 1000;
    capeOpenRelease(h);
    T = linspace(200, 300, rows).';
    T(500:1000:end) = -3;
    T(1001:1003) = -4;
    given{3} = T;
end

function check_many_rows()
    given = many_rows(2.5);
    rows = numel(given{3});
    failed = nnz(given{3} < 0);
    [manager, package] = natural_gas();
    h = capeOpenCreate(manager, package);
    [a, b, texts] = capeOpenMultiFlash(h, given{:});
    lastwarn('');
    evalc('capeOpenMultiFlash(h, given{:});');
    expected = lastwarn();
    [c, d, found] = capeOpenMultiFlashParallel(manager, package, given{:});
    check(isequaln({a, b}, {c, d}), 'results');
    check(isequal(texts, found) && nnz(~cellfun('isempty', found)) == failed, 'texts');
    lastwarn('');
    evalc('capeOpenMultiFlashParallel(manager, package, given{:});');
    check(~isempty(strfind(expected, sprintf('Flash failed in %d of %d rows', failed, rows))) ...
          && strcmp(expected, lastwarn()), 'the warning is not "%s", but "%s"', expected, lastwarn());
    capeOpenWarnings(0);
    lastwarn('');
    capeOpenMultiFlashParallel(manager, package, given{:});
    check(isempty(lastwarn()), 'a warning without warnings: %s', lastwarn());
    capeOpenWarnings(1);
    capeOpenRelease(h);
end

function workers_do_what_is_long_and_rows_fail_as_without_them(~)
    if nproc() > 1
        pkg('load', 'parallel');
        quiet = @(x) warning('off', 'Verdanth:warning'); % something else has left it so in the workers
        parcellfun(nproc(), quiet, num2cell(1:8 * nproc()), 'UniformOutput', false);
        check_many_rows();
        check(numel(workers()) == nproc(), '%d workers', numel(workers()));
    end
end

function rows_of_a_matlab_pool_that_is_lost_are_done_by_others(~)
    global messages_left
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    given = many_rows(2.5);
    [manager, package] = natural_gas();
    evalc('expected = capeOpenMultiFlashParallel(manager, package, given{:});');
    messages_left = 4;
    shown = evalc('found = capeOpenMultiFlashParallel(manager, package, given{:});');
    check(messages_left < 0, 'the pool was not lost');
    check(isequaln(found, expected), 'results');
    words = 'CAPE-OPEN: A worker was lost (The pool has shut down); others calculate what it left, ';
    check(numel(strfind(shown, words)) == 1, '%s', shown);
end

% The first pool has forty workers, the second three: they take larger blocks.
function blocks_after_a_loss_are_for_the_workers_there_are(~)
    global messages_left size_of_pool
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    given = many_rows(2.5);
    [manager, package] = natural_gas();
    messages_left = 4;
    size_of_pool = [40 3];
    evalc('capeOpenMultiFlashParallel(manager, package, given{:});');
    check(messages_left < 0 && messages_left > -60, '%d blocks for three workers, 160 for forty', -messages_left);
end

function messages_of_a_matlab_pool_that_come_late_do_no_harm(~)
    global late_messages
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    [manager, package] = natural_gas();
    given = many_rows(2.5);
    evalc('expected = capeOpenMultiFlashParallel(manager, package, given{:});');
    late_messages = {};
    other = given;
    other{5} = 39e5;
    evalc('capeOpenMultiFlashParallel(manager, package, other{:});');
    check(numel(late_messages) > 3, '%d messages', numel(late_messages));
    evalc('found = capeOpenMultiFlashParallel(manager, package, given{:});');
    check(isequaln(found, expected), 'results');
end

% Others cut what is left into blocks of another size, and then messages of the first ones come.
function late_messages_of_a_matlab_pool_that_is_lost_do_no_harm(~)
    global messages_left late_messages size_of_pool
    size_of_pool = [12 12]; % their number cuts the blocks then, not the time
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    given = many_rows(2.5);
    [manager, package] = natural_gas();
    evalc('expected = capeOpenMultiFlashParallel(manager, package, given{:});');
    messages_left = 6;
    late_messages = {};
    evalc('found = capeOpenMultiFlashParallel(manager, package, given{:});');
    check(messages_left < 0, 'the pool was not lost');
    check(isequaln(found, expected), '%d rows instead of %d', size(found, 1), size(expected, 1));
end

function what_is_short_is_done_without_workers(~)
    given = many_rows(0.02); % a fiftieth of what pays, as a busy machine takes a multiple
    [manager, package] = natural_gas();
    evalc('capeOpenMultiFlashParallel(manager, package, given{:});');
    check(isempty(workers()), 'there are workers');
end

function rows_of_a_worker_that_dies_are_done_by_others(~)
    if nproc() == 1
        return
    end
    given = many_rows(4);
    [manager, package] = natural_gas();
    evalc('expected = capeOpenMultiFlashParallel(manager, package, given{:});'); % starts the workers
    before = workers();
    system(sprintf('(sleep 0.7; kill -9 %d) > /dev/null 2>&1 &', before(1)));
    shown = evalc('found = capeOpenMultiFlashParallel(manager, package, given{:});');
    check(isequaln(found, expected), 'results');
    check(numel(strfind(shown, 'CAPE-OPEN: A worker was lost')) == 1, '%s', shown);
    check(~any(workers() == before(1)) && numel(workers()) == nproc(), 'the workers now');
end

% test_servers.py has them run.
function on_servers_results_are_the_same(~)
    pkg('load', 'parallel');
    servers = pconnect({'127.0.0.1', '127.0.0.2'}, struct('use_tls', false));
    given = many_rows(2.5);
    [manager, package] = natural_gas();
    evalc('expected = cell(1, 3); [expected{:}] = capeOpenMultiFlashParallel(manager, package, given{:});');
    evalc('parcellfun_set_nproc(0);');
    lastwarn('');
    found = cell(1, 3);
    [found{:}] = capeOpenMultiFlashParallel(manager, package, given{:}, servers);
    check(isequaln(found, expected), 'results');
    check(isempty(workers()), 'it was calculated on this machine');
    check(isempty(lastwarn()), 'a warning: %s', lastwarn());
    hosts = unique(netcellfun(servers, @(x) getppid(), num2cell(1:8))); % of the workers of the servers
    check(numel(hosts) == 2, '%d servers', numel(hosts));
    system(sprintf('(sleep 0.5; kill -9 %d) > /dev/null 2>&1 &', hosts(1)));
    shown = evalc('[found{:}] = capeOpenMultiFlashParallel(manager, package, given{:}, servers);');
    check(isequaln(found, expected), 'results after the loss of a server');
    check(numel(strfind(shown, 'CAPE-OPEN: A worker was lost')) == 1, '%s', shown);
end

function arguments_are_those_of_the_serial_function(~)
    [manager, package] = natural_gas();
    flash = @(varargin) capeOpenMultiFlashParallel(manager, package, varargin{:});
    Z = struct('methane', 0.9, 'ethane', 0.1);
    T = (180:10:300).';
    h = capeOpenCreate(manager, package);
    expected = capeOpenMultiFlash(h, Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 'enthalpy');
    capeOpenRelease(h);
    for servers = {{}, {[]}}
        given = {Z, 'Temperature', T, 'Pressure', 40e5};
        check(isequal(flash(given{:}, 'enthalpy', servers{1}{:}), expected), 'without solution');
        check(isequal(flash(given{:}, {'enthalpy'}, servers{1}{:}), expected), 'without solution, a cell');
        check(isequal(flash(given{:}, 'Normal', 'enthalpy', servers{1}{:}), expected), 'with solution');
    end
    given{3} = T(end);
    check(isequal(flash(given{:}, 'enthalpy', []), expected(end)), 'one row');
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
