% What install.m does, with stand-ins for what it calls:  octave-cli tests/installer/test_install.m INSTALL.m WORK
% WORK is a folder of its own, made anew
1;

% A new session in front of a folder as it is unpacked; every test has one of its own below the work folder.
function folder = unpack(name)
    global machine saved questions answers commands commands_that_work install_source work_folder
    machine = 'PCWIN64';
    saved = 0;
    questions = {};
    answers = {'', '', '', ''};
    commands = {};
    commands_that_work = 4;
    folder = fullfile(work_folder, name);
    if exist(folder, 'dir') == 0
        mkdir(folder);
        mkdir(fullfile(folder, 'toolbox'));
    end
    write_file(fullfile(folder, 'install.m'), install_source);
    write_file(fullfile(folder, 'toolbox', 'Verdanth.mexw64'), '');
    cd(folder);
    clear install
end

function write_file(name, text)
    file = fopen(name, 'w');
    fwrite(file, text);
    fclose(file);
end

function shown = run_install(varargin)
    shown = evalc('install(varargin{:})');
end

function answer = is_on_path(folder, part)
    if nargin < 2
        part = 'toolbox';
    end
    answer = any(strcmp(strsplit(path(), pathsep()), fullfile(folder, part)));
end

function check_other_machines_are_refused()
    global machine saved
    folder = unpack('other_machine');
    machine = 'PCWIN';
    message = message_of(@() run_install());
    check(strcmp(message, 'Verdanth needs 64-bit MATLAB or Octave on 64-bit Windows; this is PCWIN.'), 'said: %s', message);
    check(~is_on_path(folder) && saved == 0, 'the path is changed');
end

function check_octave_is_served()
    global machine saved
    folder = unpack('octave_here');
    machine = 'x86_64-w64-mingw32';
    run_install();
    check(is_on_path(folder) && saved == 1, 'the path is not changed and saved');
end

function check_a_folder_without_the_library_is_refused()
    folder = unpack('incomplete');
    delete(fullfile(folder, 'toolbox', 'Verdanth.mexw64'));
    message = message_of(@() run_install());
    check(~isempty(strfind(message, 'Verdanth.mexw64 is not in')) && ~is_on_path(folder), 'said: %s', message);
end

function check_nothing_is_registered_unasked()
    global saved questions commands
    folder = unpack('unasked');
    shown = run_install();
    check(is_on_path(folder) && saved == 1, 'the path is not changed and saved');
    check(numel(questions) == 3 && isempty(commands), '%d questions, %d commands', numel(questions), numel(commands));
    check(~isempty(strfind(shown, 'changes the registry')), 'it does not say what it does: %s', shown);
end

function check_what_is_answered_with_yes_is_registered()
    global answers commands
    folder = unpack('yes');
    answers = {'y', 'YES', 'Yes'};
    shown = run_install();
    expected = {['"' fullfile(folder, 'Verdanth6432Relay.exe') '" /RegServer'], ...
                ['"' fullfile(folder, 'Verdanth6432Relay.exe') '" /RegTypeLib'], ...
                ['"W/System32/regsvr32.exe" /s "' fullfile(folder, 'reference/x64/VerdanthReference.dll') '"'], ...
                ['"W/SysWOW64/regsvr32.exe" /s "' fullfile(folder, 'reference/x86/VerdanthReference.dll') '"']};
    check(isequal(commands, expected), 'ran: %s', strjoin(commands, ' | '));
    for k = 1:4
        check(~isempty(strfind(shown, expected{k})), 'it does not show what it runs: %s', shown);
    end
end

function check_a_failure_is_told_and_ends_what_belongs_together()
    global answers commands commands_that_work
    unpack('failure');
    answers = {'n', 'n', 'y'};
    commands_that_work = 0;
    shown = run_install();
    check(numel(commands) == 1 && ~isempty(strfind(shown, 'as administrator')), 'shown: %s', shown);
    check(isempty(strfind(shown, 'Done.')), 'it says Done');
end

function check_the_setup_program_is_not_repeated()
    global questions
    folder = unpack('setup');
    write_file(fullfile(folder, 'uninstall.exe'), '');
    run_install();
    check(is_on_path(folder) && isempty(questions), 'it asks');
end

function check_it_can_be_undone()
    global saved questions
    folder = unpack('undone');
    run_install();
    check(~is_on_path(folder, 'isolated'), 'that is what capeOpenBackend is for');
    others = {'isolated', 'octave'};
    for other = others
        mkdir(fullfile(folder, other{1}));
        addpath(fullfile(folder, other{1}));
    end
    run_install('remove');
    check(~is_on_path(folder) && saved == 2, 'the folder stays on the path');
    for other = others
        check(~is_on_path(folder, other{1}), 'the folder %s stays on the path', other{1});
    end
    questions = {};
    run_install();
    lastwarn('');
    run_install('remove');
    check(isempty(lastwarn()), 'it warns: %s', lastwarn());
    check(~isempty(message_of(@() run_install('undo'))), 'another word is taken');
end

global install_source work_folder
inputs = argv();
install_source = fileread(inputs{1});
work_folder = inputs{2};
if exist(work_folder, 'dir')
    confirm_recursive_rmdir(false);
    rmdir(work_folder, 's');
end
mkdir(work_folder);
warning('off', 'Octave:shadowed-function');
tests_folder = fileparts(mfilename('fullpath'));
addpath(fullfile(tests_folder, 'stubs'), fullfile(tests_folder, '..', 'toolbox', 'support'));
setenv('SystemRoot', 'W');
tests = {@check_other_machines_are_refused, @check_a_folder_without_the_library_is_refused, ...
         @check_nothing_is_registered_unasked, @check_what_is_answered_with_yes_is_registered, ...
         @check_a_failure_is_told_and_ends_what_belongs_together, @check_the_setup_program_is_not_repeated, ...
         @check_it_can_be_undone};
failures = 0;
for k = 1:numel(tests)
    message = message_of(tests{k});
    if ~isempty(message)
        fprintf(stderr, '%s: %s\n', func2str(tests{k}), message);
        failures = failures + 1;
    end
end
if failures > 0
    exit(1);
end
