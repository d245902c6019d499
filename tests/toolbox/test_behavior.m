% How a package behaves, by capeOpenCheck, one test each:  octave-cli tests/toolbox/test_behavior.m TEST TOOLBOX VERDANTH
% TOOLBOX is the folder of the functions, VERDANTH the one where `Verdanth` is found.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% Name, command, property, what becomes of the result, the check that has to find it, how severe it is, and words of the
% finding.
function faults = fault_table()
    faults = {
        'a leak of a property', 22, 'density', @leak, 'manyCalls', 'failure', '^phase density: the package keeps bytes'
        'a leak of a flash', 25, 'Temperature', @leak, 'manyCalls', 'failure', '^flash Temperature Pressure: the package keeps'
        'a leak of constants', 16, 'criticalTemperature', @leak, 'manyCalls', 'failure', '^constant criticalTemperature: the'
        'calls that become slower', 22, 'density', @slower_and_slower, 'manyCalls', 'failure', '^phase density: calls become slower'
        'a slow flash', 25, 'Temperature', @slow_at_one_state, 'times', 'note', '^flash Temperature Pressure: a call takes much longer'
        'a slow property', 22, 'density', @slow_at_one_state, 'times', 'note', '^phase density: a call takes much longer'
        'slow batches', 22, 'density', @slow_in_batches, 'times', 'note', '^phase density: rows of a batch take much longer'
        'warnings', 22, 'enthalpy', @warned, 'warnings', 'note', 'warn, in 1 different words: parameters are estimated'
        };
end

function v = leak(v, given)
    persistent kept
    kept{end + 1} = rand(1, 8192);
end

function v = slower_and_slower(v, given)
    global calls_made
    calls_made = sum([calls_made, 1]);
    pause(1.5e-5 * calls_made);
end

function v = slow_at_one_state(v, given)
    persistent slow
    T = given{5};
    if isempty(slow)
        slow = T(1);
    end
    if any(T == slow)
        pause(0.1);
    end
end

function v = slow_in_batches(v, given)
    pause(5e-3 * numel(v) * (numel(v) > 1));
end

function v = warned(v, given)
    warning('Verdanth:warning', 'CAPE-OPEN: parameters are estimated');
end

function every_behavior_is_found(toolbox)
    global fault calls_made
    behind_the_faulty_one();
    faults = fault_table();
    for k = 1:size(faults, 1)
        [name, command, property, alter, kind, severity, words] = faults{k, :};
        fault = [];
        h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas'); % is open beyond each check
        fault = struct('command', command, 'property', property, 'alter', alter);
        report = quick_check('Checks', {kind});
        found = report.findings(strcmp({report.findings.severity}, severity));
        found = found(~cellfun(@isempty, regexp({found.what}, words, 'once')));
        check(numel(found) == 1, '%s: %d findings of %s', name, numel(found), strjoin({report.findings.what}, '; '));
        calls_made = 0; % as for one who types the lines
        check(reproduces(found), '%s: %s is not shown by\n%s', name, found.what, strjoin(found.lines(:).', "\n"));
    end
    fault = [];
    check(isempty(quick_check('Checks', unique(faults(:, 5)).').findings), 'the sound package has findings');
end

% A package that calculates with anything, where the library refuses it.
function what_is_wrong_has_to_be_refused(toolbox)
    global fault
    behind_the_faulty_one();
    conditions = {'a temperature below zero', 'a pressure below zero', 'a temperature of zero', 'a pressure of zero', ...
                  'a temperature that is not set', 'a pressure that is not set', 'a temperature without end', ...
                  'a pressure without end', 'a fraction below zero', 'a fraction that is not set', 'fractions that are all zero'};
    specifications = {'the same specification twice', 'a vapor fraction of 2', 'an enthalpy of 1e15 J/mol', 'a volume below zero'};
    answered = {24, 'failure', 'A flash', [conditions, specifications]
                24, 'note', 'A flash', {'an unknown type of solution'}
                22, 'failure', capeOpenSinglePhasePropList(capeOpenCreate('Verdanth Reference Packages', 'Natural gas')){1}, conditions
                16, 'failure', 'A constant', {'an unknown name'}
                20, 'failure', 'A property by temperature', {'an unknown name'}
                21, 'failure', 'A property by pressure', {'an unknown name'}};
    for k = 1:size(answered, 1)
        fault = struct('command', -answered{k, 1});
        report = quick_check('Checks', {'errors'});
        fault = [];
        what = sprintf('%s with %s is answered', answered{k, 3}, strjoin(answered{k, 4}, ', '));
        found = report.findings(strcmp({report.findings.what}, what));
        check(numel(found) == 1 && strcmp(found.severity, answered{k, 2}) && found.count == numel(answered{k, 4}), ...
              'no "%s" in\n%s', what, strjoin({report.findings.what}, "\n"));
        check(sum(ismember({report.findings.what}, what)) == 1 && report.checks.asked >= 60, '%d asked', report.checks.asked);
        fault = struct('command', -answered{k, 1});
        message = error_of(found.lines);
        check(isempty(message), '%s is refused: %s', what, message);
        fault = [];
    end
    check(isempty(quick_check('Checks', {'errors'}).findings), 'a refusal is a finding');
end

function message = error_of(lines)
    message = '';
    try
        evalc(strjoin(lines(:).', "\n"));
    catch problem
        message = problem.message;
    end
end

function fractions_that_are_not_scaled_are_found(toolbox)
    global fault
    behind_the_faulty_one();
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    property = capeOpenSinglePhasePropList(h){1};
    fault = struct('command', 22, 'property', property, 'alter', @(v, g) v * sum(g{7}(1, :)));
    report = quick_check('Checks', {'errors'});
    fault = [];
    check(any(strcmp({report.findings.what}, [property, ' with fractions with the sum 2 is answered'])), ...
          '%s', strjoin({report.findings.what}, "\n"));
end

function refusals_have_to_say_why(toolbox)
    global fault
    behind_the_faulty_one();
    for words = {'computation error', 'error code 0x80004005', 'Invalid argument', '17'}
        fault = struct('command', 24, 'refusal', ['CalcEquilibrium failed: ', words{1}]);
        report = quick_check('Checks', {'errors'});
        fault = [];
        found = report.findings(strcmp({report.findings.severity}, 'note'));
        check(numel(found) == 1 && numel(report.findings) == 1 && found.count == 16, '%s: %s', words{1}, ...
              strjoin({report.findings.what}, "\n"));
        check(~isempty(regexp(found.what, ['^A flash with .* is refused without a reason: ', words{1}, '$'], 'once')), found.what);
    end
    fault = struct('command', 24, 'refusal', 'CalcEquilibrium failed: the temperature -10 K is below 20 K');
    check(isempty(quick_check('Checks', {'errors'}).findings), 'a reason is none');
    fault = [];
end

function mistakes_have_to_leave_the_rest_as_it_was(toolbox)
    global fault
    behind_the_faulty_one();
    for off = {1e-6, 'failure'; 1e-13, 'note'}.'
        fault = struct('command', 25, 'property', 'vaporFraction', 'alter', @(v, g) v * (1 + off{1}) + off{1}, 'after_failure', true);
        report = quick_check('Checks', {'errors'});
        check(numel(report.findings) == 1 && strcmp(report.findings.severity, off{2}) && ...
              strcmp(report.findings.what, 'What is right gives another result after a call with a mistake'), '%g: %s', off{1}, ...
              strjoin({report.findings.what}, "\n"));
        fault = rmfield(fault, 'failed');
        check(reproduces(report.findings), 'not shown by\n%s', strjoin(report.findings.lines(:).', "\n"));
    end
    fault = [];
end

% Without what is measured, which no two reports have in common.
function report = without_times(report)
    report = rmfield(report, {'seconds', 'times', 'memory'});
    report.checks = rmfield(report.checks, 'seconds');
    measured = ismember({report.checks.name}, {'times', 'manyCalls'});
    report.findings(ismember({report.findings.check}, {report.checks(measured).name})) = []; % on a busy machine
    [report.checks(measured).notes] = deal(0);
    [report.checks(measured).bars] = deal([]);
    [report.checks(measured).asked] = deal(0); % as many as there was time for
end

% Options of a check of which workers can do most.
function options = for_workers()
    names = {'volumes', 'times', 'moleDerivatives', 'errors', 'casNumbers', 'pureProperties', 'flashes', 'roundTrips'};
    options = {'Level', 'quick', 'Quiet', true, 'Checks', names};
end

function workers_give_the_same_report(toolbox)
    options = for_workers();
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    expected = without_times(capeOpenCheck(h, options{:}));
    check(numel(expected.checks) == 8 && strcmp(expected.verdict, 'notes'), 'there is nothing to compare');
    check(nproc() == 1 || ~isempty(pkg('list', 'parallel')), 'the package parallel is missing');
    check(isequaln(without_times(capeOpenCheck(h, options{:}, 'Parallel', true)), expected), 'workers give another report');
    check(isequal(capeOpenHandleList(), h), 'another package is open');
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'one_processor'));
    check(isequaln(without_times(capeOpenCheck(h, options{:}, 'Parallel', true)), expected), 'without workers there is another');
end

function a_matlab_pool_gives_the_same_report(toolbox)
    global size_of_pool messages_left late_messages
    options = for_workers();
    names = {'Natural gas', 'Air'};
    for k = 1:2
        serial = @() capeOpenCheck('Verdanth Reference Packages', names{k}, options{:});
        expected{k} = without_times(serial());
        parallel{k} = @() capeOpenCheck('Verdanth Reference Packages', names{k}, options{:}, 'Parallel', true);
    end
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    check(isequaln(without_times(parallel{1}()), expected{1}), 'a pool gives another report');
    [messages_left, size_of_pool] = deal(3, [3, 3]);
    shown = evalc('found = parallel{1}();');
    check(messages_left == 0 && isequaln(without_times(found), expected{1}), 'a pool that is lost gives another report');
    [messages_left, late_messages] = deal([], {});
    check(isequaln(without_times(parallel{1}()), expected{1}), 'late messages are needed');
    check(numel(late_messages) == 7, '%d messages', numel(late_messages));
    check(isequaln(without_times(parallel{2}()), expected{2}), 'late messages of another package count');
end

function times_and_memory_are_told(toolbox)
    file = [tempname(), '.html'];
    shown = evalc('report = capeOpenCheck(''Verdanth Reference Packages'', ''Natural gas'', ''Level'', ''quick'', ''Checks'', {''times'', ''manyCalls''}, ''Report'', file);');
    text = fileread(file);
    delete(file);
    times = report.times;
    check(all([times.calls] >= 3) && all([times.median] > 0) && all([times.worst] >= [times.median]), 'times are none');
    for start = {'constant ', 'TDependent ', 'PDependent ', 'phase ', 'two phases ', 'flash Temperature Pressure', 'flash Pressure enthalpy'}
        check(any(strncmp({times.kind}, start{1}, numel(start{1}))), 'no %s', start{1});
    end
    batch = ~isnan([times.row]);
    check(sum(batch) >= numel(times) - 2 && all([times(batch).call] >= 0) && all([times(batch).row] >= 0), 'batches');
    [~, k] = ismember('phase density', {times.kind});
    check(times(k).row < times(k).call, 'a row of densities takes %g s, a call %g s', times(k).row, times(k).call);
    memory = report.memory;
    check(all([memory.calls] >= 120) && all(isfinite([memory.perCall])) && isempty([memory.why]), 'memory');
    for kind = [{times.kind}, {memory.kind}]
        check(numel(regexp(text, ['<td>', kind{1}, '</td><td>\d+</td><td>[\d.e+]+ (us|ms|s)</td>'])) == 1, '%s is not in the report', kind{1});
    end
    check(numel(strfind(text, ' bytes</td>')) == numel(memory), 'memory is not in the report');
    check(~isempty(regexp(shown, 'Calls take [\d.]+ us \(.*\) to .*, the worst .*\nMemory grows by \d+ bytes a call at most', 'once')), shown);
    check(isempty(strfind(evalc('quick_check(''Checks'', {''volumes''}, ''Quiet'', false);'), 'Calls take')), 'times of nothing');
end

run_test(argv());
