% The client for Octave on Windows, in Octave on Linux: with the host process under Wine, and with a program in its place
% that sends back what it gets. One test each:  octave-cli test_plain_client.m TEST TOOLBOX CLIENT
1;
addpath(fullfile(fileparts(mfilename('fullpath')), '..', 'support'));

function stand_in()
    setenv('VERDANTH_TEST_HOST', fullfile(fileparts(mfilename('fullpath')), 'plain', 'host.py'));
end

function id = noted_id()
    id = str2double(fileread(getenv('VERDANTH_TEST_PID')));
end

% A file for the process id of each host from now on.
function note_ids()
    global noted
    file = tempname();
    noted = onCleanup(@() delete(file));
    setenv('VERDANTH_TEST_PID', file);
end

function yes = has_ended(id)
    yes = false;
    for k = 1:200
        [status, text] = system(sprintf('cat /proc/%d/stat 2>/dev/null', id));
        yes = status ~= 0 || ~isempty(regexp(text, '^\d+ \(.*\) Z', 'once'));
        if yes
            return
        end
        pause(0.05);
    end
end

function values_of_every_class_pass_to_the_bit(~)
    stand_in();
    odd = typecast(uint64([9221120237041090561, 18444492273895866368, 1, 9223372036854775808]), 'double'); % NaN, tiny, -0
    values = {1, odd, odd.', zeros(0, 3), zeros(2, 0, 4), rand(3, 4, 2), single([1.5 -2 NaN]), single(7), true, ...
              [true false true; false true true], int8(-5:5), uint8([0 255]), int16([-32768 32767]), uint16(65535), ...
              int32([-1 2; 3 4]), uint32(4294967295), intmin('int64'), intmax('int64') - 1, intmax('uint64'), 3 + 4i, ...
              complex([1 2 3], [0 0 0]), single([1 + 2i; 3]), '', 'text', 'ä Ж 水 😀', char([0 127]), {}, cell(0, 3), ...
              {1, 'a'; {}, {2, {'b'}}}, {[]; zeros(1, 0)}, 1:5, eye(3), int8(zeros(1, 0)), false(0, 1)};
    results = cell(1, numel(values));
    [results{:}] = Verdanth('echo', values{:});
    for k = 1:numel(values)
        expected = values{k};
        if ischar(expected) && isempty(expected)
            expected = char(zeros(1, 0));
        elseif ~iscell(expected)
            expected = full(expected);
        end
        check(same_bits(results{k}, expected), 'value %d: %s', k, disp(results{k}));
    end
end

function another_client_reads_the_same(~)
    stand_in();
    cases = {
        2.5, '2.5'
        int8(-5), '-5'
        intmin('int64'), '-9223372036854775808'
        true, 'True'
        'Ж😀', '''Ж😀'''
        ['ab'; 'cd'], '''acbd'''
        [1 2; 3 4], '((2, 2), array(''d'', [1.0, 3.0, 2.0, 4.0]))'
        uint16([1 2 3]), '((1, 3), array(''H'', [1, 2, 3]))'
        single([0.5; 2]), '((2, 1), array(''f'', [0.5, 2.0]))'
        {'a', 1; {}, 'b'}, '(''a'', (), 1.0, ''b'')'
        zeros(0, 3), '((0, 3), array(''d''))'
        @sin, 'None'
        struct('a', {1, 2}), 'None'
        sparse([1 2]), 'None'
        };
    results = cell(1, size(cases, 1));
    [results{:}] = Verdanth('read', cases{:, 1});
    for k = 1:size(cases, 1)
        check(isequal(results{k}, cases{k, 2}), '%s and not %s', results{k}, cases{k, 2});
    end
end

function text_that_is_none_is_replaced(~)
    stand_in();
    mark = char([239 191 189]); % of U+FFFD, in UTF-8
    cases = {
        ['a' char(200) 'b'], ['a' mark 'b']
        [char([195 40])], [mark '(']
        char([224 128 128]), [mark mark mark]
        char([237 160 128]), [mark mark mark]
        char([240 144 128]), mark
        char([244 144 128 128]), [mark mark mark mark]
        char([240 157 132 158]), char([240 157 132 158])
        char([255 254]), [mark mark]
        };
    for k = 1:size(cases, 1)
        result = Verdanth('echo', cases{k, 1});
        check(isequal(double(result), double(cases{k, 2})), 'case %d: %s', k, mat2str(double(result)));
    end
    header = @(units) [value_header(4, 0, [1 numel(units)]), typecast(uint16([units, zeros(1, mod(-numel(units), 4))]), 'uint8')];
    for lone = {[55296 65], [56320 65], [65 55296], [56320 55296]}
        result = Verdanth('send', results_of(header(lone{1}), 1));
        expected = cell(1, 2);
        expected(:) = {mark};
        expected(lone{1} == 65) = {'A'};
        check(isequal(double(result), double([expected{:}])), '%s', mat2str(double(result)));
    end
end

function bytes = value_header(type, flags, sizes)
    bytes = [uint8([type flags 0 0]), typecast(uint32(numel(sizes)), 'uint8'), typecast(uint64(sizes), 'uint8')];
end

function bytes = message(kind, content)
    bytes = [typecast(uint32([kind 0]), 'uint8'), typecast(uint64(numel(content)), 'uint8'), uint8(content)];
end

function bytes = results_of(values, count)
    bytes = message(17, [typecast(uint32([count 0]), 'uint8'), uint8(values)]);
end

function bytes = text_message(kind, text)
    bytes = message(kind, [typecast(uint64(numel(text)), 'uint8'), uint8(text), zeros(1, mod(-numel(text), 8), 'uint8')]);
end

function malformed_answers_end_the_conversation_with_a_reason(~)
    stand_in();
    number = [value_header(6, 0, [1 1]), zeros(1, 8, 'uint8')];
    unread = 'The host process sent what can not be read (%s), and was ended, in command 0';
    deep = repmat(value_header(1, 0, [1 1]), 1, 40);
    cases = {
        'byte 4 of a message: reserved bytes that are not 0', uint8([17 0 0 0 1, zeros(1, 11)])
        'byte 8 of a message: a length that is no multiple of 8', uint8([17, zeros(1, 7), 4, zeros(1, 7)])
        'byte 8 of a message: a length beyond 2^40', uint8([17, zeros(1, 12), 2, 0, 0])
        'an unexpected kind of message', message(99, [])
        'byte 16 of a message: the message ends too early', message(17, [])
        'byte 16 of a message: the message ends too early', message(16, [])
        'byte 20 of a message: reserved bytes that are not 0', message(17, [0 0 0 0 1 0 0 0])
        'byte 24 of a message: more values than the message has room for', results_of([], 1)
        'byte 24 of a message: a class that there is not', results_of(value_header(2, 0, [1 1]), 1)
        'byte 24 of a message: a class that there is not', results_of(value_header(77, 0, [1 1]), 1)
        'byte 24 of a message: flags that this class does not have', results_of(value_header(4, 1, [1 0]), 1)
        'byte 24 of a message: a number of dimensions that this class does not have', results_of(value_header(6, 0, 0), 1)
        'byte 24 of a message: a number of dimensions that this class does not have', results_of(value_header(255, 0, [1 1]), 1)
        'byte 32 of a message: more dimensions than the message has room for', results_of([6 0 0 0 255 255 255 255], 1)
        'byte 32 of a message: a dimension beyond 2^63', results_of(value_header(6, 0, [1 2^63]), 1)
        'byte 32 of a message: more elements than 2^63', results_of(value_header(6, 0, [2^40 2^40]), 1)
        'byte 48 of a message: more elements than the message has room for', results_of(value_header(6, 0, [1 1]), 1)
        'byte 48 of a message: more elements than the message has room for', results_of(value_header(6, 0, [1 2^40]), 1)
        'byte 52 of a message: padding that is not 0', results_of([value_header(12, 0, [1 1]), 1 0 0 0 1 0 0 0], 1)
        'byte 48 of a message: more values than the message has room for', results_of(value_header(1, 0, [1 2^40]), 1)
        'byte 56 of a message: the message goes on behind its end', results_of([number, zeros(1, 8)], 1)
        'byte 48 of a message: a logical that is neither 0 nor 1', results_of([value_header(3, 0, [1 1]), 2 zeros(1, 7)], 1)
        'byte 816 of a message: cells that are too deep', results_of(deep, 1)
        };
    for k = 1:size(cases, 1)
        words = message_of(@() Verdanth('send', cases{k, 2}));
        check(strcmp(words, sprintf(unread, cases{k, 1})), 'case %d: %s', k, words);
        check(isequal(Verdanth('echo', k), k), 'there is no new host');
    end
end

function ends_are_told(~)
    stand_in();
    ended = 'The property package ended its process: %s, in command 0';
    words = message_of(@() Verdanth('exit'));
    check(strcmp(words, sprintf(ended, 'it did not tell why')), '%s', words);
    words = message_of(@() Verdanth('send', text_message(19, 'stack overflow in ä.dll')));
    check(strcmp(words, sprintf(ended, 'stack overflow in ä.dll')), '%s', words);
    words = message_of(@() Verdanth(24));
    check(~isempty(strfind(words, 'can not be read')) && ~isempty(strfind(words, ', while calculating capeOpenFlash')), '%s', words);
    setenv('VERDANTH_TEST_GREETING', 'OTHERONE');
    words = message_of(@() Verdanth('echo', 1));
    expected = 'VerdanthHost64.exe did not start: it did not greet as a host of Verdanth does. If files of Verdanth are missing, install it again';
    check(~isempty(strfind(words, expected)), '%s', words);
    setenv('VERDANTH_TEST_GREETING', '');
    check(isequal(Verdanth('echo', 1), 1), 'no new one');
end

function warnings_come_in_order_before_the_error(~)
    stand_in();
    answer = [text_message(16, 'first %s \n'), text_message(16, 'second'), text_message(18, 'wrong %d \n')];
    shown = evalc('message = message_of(@() Verdanth(''send'', answer));');
    check(strcmp(message, 'wrong %d \n'), '%s', message);
    places = [strfind(shown, 'warning: first %s \n'), strfind(shown, 'warning: second')];
    check(numel(places) == 2 && issorted(places), '%s', shown);
    [~, identifier] = lastwarn();
    check(strcmp(identifier, 'Verdanth:warning'), '%s', identifier);
    [~, identifier] = lasterr();
    check(strcmp(identifier, 'Verdanth:error'), '%s', identifier);
end

function results_there_are_not_are_not_given(~)
    stand_in();
    Verdanth('echo');
    [~, a] = deal(1, Verdanth('echo', 5, 6));
    check(a == 5, 'the first of two');
    words = message_of(@() two_of('echo', 5));
    check(~isempty(strfind(words, 'element number 2 undefined')), '%s', words);
    missing = [255, zeros(1, 7)];
    check(isequal(Verdanth('send', results_of([value_header(1, 0, [1 2]), missing, missing], 1)), {[], []}), 'in a cell');
    check(isempty(strfind(message_of(@() two_of('send', results_of([missing, missing], 2))), 'read')), 'it is no error of the host');
end

function [a, b] = two_of(varargin)
    [a, b] = Verdanth(varargin{:});
end

function the_pipes_are_never_files_of_others(~)
    stand_in();
    note_ids();
    Verdanth('echo', 1);
    id = noted_id();
    fclose('all');
    check(has_ended(id), 'it stays');
    files = arrayfun(@(k) fopen(tempname(), 'w+'), 1:4);
    check(isequal(Verdanth('echo', 2), 2), 'no new one');
    arrayfun(@(file) fflush(file), files);
    sizes = arrayfun(@(file) ftell(file), files);
    names = arrayfun(@(file) fopen(file), files, 'UniformOutput', false);
    arrayfun(@(file) fclose(file), files);
    cellfun(@delete, names);
    check(~any(sizes), 'something was written');
    check(isequal(Verdanth('echo', 3), 3), 'it was closed with the files');
end

function a_host_that_is_killed_is_replaced(~)
    note_ids();
    capeOpenRelease(open_natural_gas());
    [h, Z] = open_natural_gas();
    density = @(h) capeOpenSinglePhaseProp(h, 'density', 300, 1e5, Z, 'Vapor');
    first = density(h);
    kill(noted_id(), SIG().KILL);
    words = message_of(@() density(h));
    check(strncmp(words, 'The property package ended its process: it did not tell why, while calculating capeOpenSinglePhaseProp', 100), '%s', words);
    words = message_of(@() density(h));
    check(strncmp(words, 'Invalid property package handle: its package was lost with its process (it did not tell why)', 90), '%s', words);
    words = words_of(@() density(int32(0)));
    check(strcmp(words, 'Invalid property package handle'), 'of what was never open: %s', words);
    check(isequal(density(open_natural_gas()), first), 'the new one gives something else');
    check(numel(capeOpenHandleList()) == 1, 'packages');
end

function clearing_and_the_end_of_octave_end_the_host(~)
    note_ids();
    capeOpenVersion();
    id = noted_id();
    check(exist(sprintf('/proc/%d', id), 'dir') == 7, 'it is not there');
    clear('Verdanth');
    check(has_ended(id), 'it stays after clear');
    code = sprintf('addpath(''%s''); Verdanth(26); clear all; Verdanth(26);', fileparts(which('Verdanth')));
    status = system(sprintf('octave-cli --quiet --norc --no-history --eval "%s" </dev/null', code));
    check(status == 0, 'Octave ended with %d', status);
    check(noted_id() ~= id && has_ended(noted_id()), 'it stays after the end');
end

function a_package_that_ends_its_process_is_told_of(~)
    setenv('VERDANTH_WINEPREFIX', [getenv('VERDANTH_WINEPREFIX') '-ill']);
    words = message_of(@() capeOpenCreate('writes to null', ''));
    expected = 'The property package ended its process: access violation in ill_packages.dll, in capeOpenCreate';
    check(strncmp(words, expected, numel(expected)), '%s', words);
end

% Octave as it is on Windows, and Verdanth as it is installed there.
function octave_on_windows_calls_it_by_itself(toolbox)
    client = fileparts(which('Verdanth'));
    rmpath(toolbox);
    while ~isempty(which('Verdanth'))
        rmpath(fileparts(which('Verdanth')));
    end
    confirm_recursive_rmdir(false);
    root = tempname();
    mkdir(root);
    goes = onCleanup(@() rmdir(root, 's'));
    copyfile(toolbox, fullfile(root, 'toolbox'));
    copyfile(client, fullfile(root, 'octave'));
    installed = fullfile(root, 'toolbox');
    addpath(installed);
    called = which('Verdanth');
    check(isempty(called), 'elsewhere it is %s', called);
    rmpath(installed);
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(fileparts(mfilename('fullpath')), 'plain', 'system'));
    addpath(installed);
    called = which('Verdanth');
    check(strcmp(called, fullfile(root, 'octave', 'Verdanth.m')), 'it is %s', called);
    [back_end, details] = capeOpenBackend();
    check(strcmp(back_end, 'isolated'), 'the back end is %s', back_end);
    check(strcmp(details, ['isolated: ' fullfile(root, 'octave', 'VerdanthHost64.exe')]), '%s', details);
    check(strcmp(capeOpenBackend('isolated'), 'isolated'), 'it is no choice');
    check_messages(installed, {
        'Backend', 'Octave on Windows has no other back end than ''isolated''', @() capeOpenBackend('native')
        'Backend', 'Octave on Windows has no ''TimeLimit''', @() capeOpenBackend('isolated', 'TimeLimit', 3)
        });
    delete(fullfile(root, 'octave', 'VerdanthHost64.exe'));
    clear('Verdanth');
    words = message_of(@() capeOpenVersion());
    expected = ['VerdanthHost64.exe was not found: it is neither in ' fullfile(root, 'octave') ' nor in the folder host beside that'];
    check(strncmp(words, expected, numel(expected)), '%s', words);
    fclose(fopen(fullfile(installed, 'Verdanth.m'), 'w')); % in the place of a compiled one
    rehash();
    check(strcmp(which('Verdanth'), fullfile(installed, 'Verdanth.m')), 'it comes before the library');
end

function a_hundred_thousand_rows_take_part_of_a_second(~)
    [h, Z] = open_natural_gas();
    n = 1e5;
    T = linspace(250, 400, n).';
    few = [1; 777; n];
    Z = rand(n, 1) .* Z + Z;
    begun = tic();
    density = capeOpenSinglePhaseProp(h, 'density', T, 1e5, Z, 'Vapor');
    passed = toc(begun);
    printf('%d rows: %.2f s\n', n, passed);
    check(isequal(density(few), capeOpenSinglePhaseProp(h, 'density', T(few), 1e5, Z(few, :), 'Vapor')), 'others');
    check(passed < 5, '%g s', passed);
end

run_test(argv());
