% Batches of flashes, one test each:  octave-cli tests/toolbox/test_batches.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function blocks_give_the_numbers_of_one_call(~)
    [manager, package, Z] = natural_gas();
    h = capeOpenCreate(manager, package);
    names = {'vaporFraction', 'enthalpy', 'Temperature'};
    for rows = [1 2 32 33 500 30000]
        T = linspace(170, 310, rows).';
        whole = Verdanth(25, h, Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 3, names);
        [a, b, c] = capeOpenMultiFlash(h, Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', names);
        check(isequal({a; b; c}, whole), '%d rows', rows);
    end
    H = whole{2}(1:10:end);
    H(7:100:end) = 1e9;
    given = {repmat(Z, numel(H), 1), 'Pressure', linspace(1e5, 40e5, numel(H)).', 'enthalpy', H, 'Normal'};
    evalc('whole = Verdanth(25, h, given{:}, 2, names);');
    evalc('[a, b] = capeOpenMultiFlash(h, given{:}, names);');
    check(isequaln({a; b}, whole), 'compositions in rows, some fail');
    check(isequal(find(isnan(a)), (7:100:numel(H)).'), 'rows that fail');
end

function use_slow_library(seconds)
    global seconds_per_row sizes_of_calls
    addpath(fullfile(fileparts(mfilename('fullpath')), 'slow_library'));
    seconds_per_row = seconds;
    sizes_of_calls = [];
end

function shown = batch(T, outputs)
    global seconds_per_row
    lastwarn('');
    results = cell(1, outputs);
    evalc('[results{:}] = capeOpenMultiFlash(int32(1), 1, ''Temperature'', T, ''Pressure'', 2, '''', ''enthalpy'');');
    check(isequaln(results{1}, [T(T >= 0); T(T < 0) * NaN]) || any(T < 0), 'results');
    shown = results{end};
end

% Beside flashes as quick as any, during which this library works no more than it has to: what it waits costs no processor
% time, and what is left is the toolbox's.
function blocks_cost_next_to_nothing(~)
    rows = 100000;
    use_slow_library(15e-6);
    begun = cputime();
    batch(linspace(200, 300, rows).', 1);
    passed = cputime() - begun;
    printf('%.1f %% more\n', 100 * passed / (rows * 15e-6));
    check(passed < 0.05 * rows * 15e-6, '%g s for %d rows', passed, rows);
end

function a_block_takes_a_quarter_of_a_second(~)
    global sizes_of_calls
    for seconds = [1e-3 20e-3]
        use_slow_library(seconds);
        batch(mod((1:round(1.5 / seconds)).', 400), 1);
        check(max(sizes_of_calls) <= 0.27 / seconds, 'blocks of %d rows at %g s a row', max(sizes_of_calls), seconds);
        check(numel(sizes_of_calls) < 40, '%d blocks at %g s a row', numel(sizes_of_calls), seconds);
        check(sum(sizes_of_calls) == round(1.5 / seconds), '%d rows', sum(sizes_of_calls));
    end
end

function failures_are_told_in_one_warning(~)
    use_slow_library(0);
    T = (1:100).';
    T([3 7:9 50]) = -(1:5);
    T(60) = NaN;
    batch(T, 1);
    check(strcmp(lastwarn(), sprintf(['CAPE-OPEN: Flash failed in 5 of 100 rows, which specify Temperature and Pressure:\n' ...
          '  5 rows (3, 7-9, 50), for example: no phase is stable at -1 K\nOne more output gives a text for each row.'])), ...
          '%s', lastwarn());
    T = repmat([5; -1], 5000, 1);
    batch(T, 1);
    check(strcmp(lastwarn(), sprintf(['CAPE-OPEN: Flash failed in 5000 of 10000 rows, which specify Temperature and Pressure:\n' ...
          '  5000 rows (2, 4, 6, 8, 10, 12, 14, 16, ..., 10000): no phase is stable at -1 K\n' ...
          'One more output gives a text for each row.'])), '%s', lastwarn());
    batch((1:100).', 1);
    check(isempty(lastwarn()), 'nothing failed: %s', lastwarn());
end

function a_single_row_is_warned_of_in_the_words_of_the_library(~)
    use_slow_library(0);
    batch(-4, 1);
    check(strcmp(lastwarn(), 'CAPE-OPEN: Flash failed at -4, 2: no phase is stable at -4 K'), '%s', lastwarn());
end

function one_more_output_has_a_text_for_each_row(~)
    use_slow_library(0);
    T = (1:200).';
    T([4 150]) = [-2 -3];
    T([70 71 149]) = 1000;
    texts = batch(T, 2);
    check(isempty(lastwarn()), 'a warning besides: %s', lastwarn());
    other = 'Failed to calculate post-flash Vapor properties: out of range';
    expected = repmat({''}, 200, 1);
    expected([70 71 149]) = {other};
    expected(4) = {'Flash failed at -2, 2: no phase is stable at -2 K'};
    expected(150) = {'Flash failed at -3, 2: no phase is stable at -3 K'};
    check(isequal(texts, expected), 'texts');
    batch(T, 1);
    lines = strsplit(lastwarn(), '\n');
    check(numel(lines) == 5 && strcmp(lines{3}, 'Other warnings of the package, 3 in 200 rows:'), '%s', lastwarn());
    where = regexp(lines{4}, ['^  \d+ rows \((\d+)-(\d+)\): ' other '$'], 'tokens', 'once');
    check(~isempty(where) && str2double(where{1}) <= 70 && str2double(where{2}) >= 149, '%s', lastwarn());
end

% What its command window gets, with and without the lines of the call.
function warnings_of_matlab_are_understood(~)
    global frame_of_warnings
    use_slow_library(0);
    T = [1 2 -3 4 1000 6].';
    for frame = {'Warning: %s \n', 'Warning: %s \n> In capeOpenMultiFlash (line 66) \n', ...
                 '[\bWarning: %s]\b \n', '[\bWarning: %s]\b \n[\b> In <a href="matlab: x">flashOnce (line 7)</a>]\b \n'}
        frame_of_warnings = frame{1};
        results = cell(1, 2);
        [results{:}] = capeOpenMultiFlash(int32(1), 1, 'Temperature', T, 'Pressure', 2, '', 'enthalpy');
        check(isequal(results{2}, {''; ''; 'Flash failed at -3, 2: no phase is stable at -3 K'; ''; ...
                                   'Failed to calculate post-flash Vapor properties: out of range'; ''}), '%s', frame{1});
        batch(T, 1);
        check(strcmp(lastwarn(), sprintf(['CAPE-OPEN: Flash failed in 1 of 6 rows, which specify Temperature and Pressure:\n' ...
              '  row 3: no phase is stable at -3 K\nOther warnings of the package, 1 in 6 rows:\n' ...
              '  3 rows (4-6): Failed to calculate post-flash Vapor properties: out of range\n' ...
              'One more output gives a text for each row.'])), '%s: %s', frame{1}, lastwarn());
    end
end

function texts_come_from_the_library_even_without_warnings(~)
    [manager, package, Z] = natural_gas();
    h = capeOpenCreate(manager, package);
    T = linspace(200, 300, 60).';
    T([5 6]) = [-3 NaN];
    given = {h, Z, 'Temperature', T, 'Pressure', 40e5, 'Unspecified', 'vaporFraction enthalpy'};
    [~, ~, texts] = capeOpenMultiFlash(given{:});
    check(isequal(find(~cellfun('isempty', texts)).', [5 6]), 'rows');
    check(strcmp(texts{5}, 'Flash failed at -3, 4e+06: The temperature must be from 20 to 1500 K'), '%s', texts{5});
    capeOpenWarnings(0);
    [~, ~, silent] = capeOpenMultiFlash(given{:});
    check(isequal(silent, texts), 'without warnings');
    lastwarn('');
    capeOpenMultiFlash(given{:});
    check(isempty(lastwarn()), 'warnings are on: %s', lastwarn());
    capeOpenWarnings(1);
    warning('off', 'Verdanth:warning');
    [~, ~, silent] = capeOpenMultiFlash(given{:});
    check(isequal(silent, texts), 'with warnings that Octave does not show');
    capeOpenMultiFlash(given{:});
    check(isempty(lastwarn()), 'shown nevertheless: %s', lastwarn());
    warning('on', 'Verdanth:warning');
    evalc('capeOpenMultiFlash(given{:});');
    check(~isempty(lastwarn()), 'warnings stay off');
    [v, text] = capeOpenMultiFlash(h, Z, 'Temperature', -3, 'Pressure', 40e5, 'Unspecified', 'vaporFraction');
    check(isnan(v) && isequal(text, texts(5)), 'a single row');
    given{8} = {'vaporFraction enthalpy', 'entropy'};
    [~, ~, s] = capeOpenMultiFlash(given{:});
    check(isa(s, 'double'), 'a third name in a cell with two names');
    [~, ~, ~, found] = capeOpenMultiFlash(given{:});
    check(isequal(found, texts), 'behind three names');
    message = words_of(@() nthargout(1:3, @capeOpenMultiFlash, h, Z, 'Temperature', T, 'Pressure', 1e5, '', 'enthalpy'));
    check(strcmp(message, 'Too many output arguments'), 'two more outputs: %s', message);
end

function states_of_warnings_stay(~)
    use_slow_library(0);
    T = [-1; zeros(99, 1)];
    flash = @() capeOpenMultiFlash(int32(1), 1, 'Temperature', T, 'Pressure', 2, '', 'enthalpy');
    for words = {{'off', 'all'}, {'off', 'Verdanth:warning'}, {'on', 'Verdanth:warning'}, {'off', 'backtrace'}, ...
                 {'on', 'backtrace'}}
        warning(words{1}{:});
        for id = {'Verdanth:warning', 'backtrace', 'Octave:some-other'}
            before.(strrep(strrep(id{1}, ':', '_'), '-', '_')) = warning('query', id{1});
        end
        lastwarn('some words', 'Some:id');
        evalc('flash();');
        for id = {'Verdanth:warning', 'backtrace', 'Octave:some-other'}
            check(isequal(before.(strrep(strrep(id{1}, ':', '_'), '-', '_')), warning('query', id{1})), ...
                  '%s after %s %s', id{1}, words{1}{:});
        end
        [text, id] = lastwarn();
        silent = strcmp(before.Verdanth_warning.state, 'off');
        check(strcmp(text, 'some words') == silent && strcmp(id, 'Some:id') == silent, '%s after %s %s', text, words{1}{:});
    end
end

% They look for the row of a warning only where there is to be a text for each.
function workers_calculate_rows_once_unless_texts_are_asked_for(~)
    global sizes_of_calls
    warning('off', 'Octave:shadowed-function');
    use_slow_library(1e-4);
    batch((1:100).', 1); % reads what Octave would warn of where it looks like MATLAB
    sizes_of_calls = [];
    addpath(fullfile(fileparts(mfilename('fullpath')), 'matlab_pool'));
    T = mod((1:20000).', 400);
    T(500:1000:end) = -3;
    T(100:1000:end) = 1000;
    given = {'manager', 'package', 1, 'Temperature', T, 'Pressure', 2, '', 'enthalpy'};
    expected = T;
    expected(T < 0) = NaN;
    lastwarn('');
    evalc('found = capeOpenMultiFlashParallel(given{:});');
    check(isequaln(found, expected), 'results');
    check(sum(sizes_of_calls) == numel(T) + 1, '%d rows for %d, and one to see whether warnings are on', sum(sizes_of_calls), numel(T));
    lines = strsplit(lastwarn(), '\n');
    check(numel(lines) == 5 && strcmp(lines{1}, 'CAPE-OPEN: Flash failed in 20 of 20000 rows, which specify Temperature and Pressure:') ...
          && strcmp(lines{3}, 'Other warnings of the package, 20 in 20000 rows:'), '%s', lastwarn());
    places = regexp(lines{2}, '\d+', 'match');
    check(isequal(str2double(places(2:4)), [500 1500 2500]), '%s', lines{2});
    lastwarn('');
    evalc('[found, texts] = capeOpenMultiFlashParallel(given{:});');
    check(isequaln(found, expected) && isempty(lastwarn()), 'results with texts');
    failed = strncmp(texts, 'Flash failed at -3, 2: ', 23);
    warned = strcmp(texts, 'Failed to calculate post-flash Vapor properties: out of range');
    check(isequal(failed, T < 0) && isequal(warned, T == 1000) && nnz(~cellfun('isempty', texts)) == 40, 'texts');
end

function rows_before_an_error_are_kept(~)
    global sizes_of_calls
    use_slow_library(0);
    T = (1:200).';
    T(150) = 500;
    message = words_of(@() capeOpenMultiFlash(int32(1), 1, 'Temperature', T, 'Pressure', 2, '', 'enthalpy'));
    check(strcmp(message, 'Property not set after post-flash property calculation'), '%s', message);
    [kept, done] = capeOpenLastResults();
    rows = sum(sizes_of_calls(1:end - 1));
    check(rows >= 64 && rows < 150, '%d rows', rows);
    check(isequal(done, (1:200).' <= rows) && isequaln(kept, [T(1:rows); NaN(200 - rows, 1)]), 'what is kept');
    capeOpenMultiFlash(int32(1), 1, 'Temperature', (1:200).', 'Pressure', 2, '', 'enthalpy');
    [kept, done] = capeOpenLastResults();
    check(isempty(kept) && isempty(done), 'of the next, which came to its end');
end

run_test(argv());
