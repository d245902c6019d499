% The back end of MATLAB on Windows that has a process of its own: what chooses it, one test each. Octave plays MATLAB, and
% has a function in the place of the client:  octave-cli tests/toolbox/test_isolated.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% The functions as they are installed, beside the folder of the client. What calls the library itself is the recorder.
function root = installed(toolbox)
    global next_answer client_failure goes_afterwards
    confirm_recursive_rmdir(false);
    next_answer = 'version of the library';
    client_failure = '';
    here = fileparts(mfilename('fullpath'));
    root = tempname();
    isolated = fullfile(root, 'isolated');
    mkdir(root);
    goes_afterwards = onCleanup(@() rmdir(root, 's'));
    mkdir(isolated);
    copyfile(toolbox, fullfile(root, 'toolbox'));
    copyfile(fullfile(fileparts(toolbox), 'client', 'matlab', 'Verdanth.m'), isolated);
    copyfile(fullfile(here, 'other_process', 'VerdanthClient.m'), isolated);
    fclose(fopen(fullfile(isolated, 'VerdanthClient.mexw64'), 'w'));
    rmpath(toolbox);
    addpath(fullfile(root, 'toolbox'));
    warning('off', 'Octave:shadowed-function');
    addpath(fullfile(here, 'matlab_windows'));
end

function check_native(root)
    check(isequal(capeOpenBackend(), 'native'), 'the back end is %s', capeOpenBackend());
    [version, back_end] = capeOpenVersion();
    check(isequal({version, back_end}, {'version of the library', 'native'}), '%s, %s', version, back_end);
    check(isempty(strfind(path(), fullfile(root, 'isolated'))), 'the folder is on the path');
end

function the_client_is_called_in_the_place_of_the_library(toolbox)
    global client_inputs client_outputs
    root = installed(toolbox);
    check_native(root);
    [back_end, details] = capeOpenBackend('Isolated');
    check(isequal({back_end, details}, {'isolated', 'isolated: C:\host.exe'}), '%s, %s', back_end, details);
    [version, back_end] = capeOpenVersion();
    check(isequal({version, back_end}, {'version of the client', details}), '%s, %s', version, back_end);
    [a, b, c, d, e] = capeOpenFlash(int32(7), [0.5 0.5], 'Temperature', 300, 'Pressure', 1e5, 'Normal');
    check(isequal({a, b, c, d, e}, {1, 2, 3, 4, 5}), 'results');
    check(isequal(client_inputs, {24, int32(7), [0.5 0.5], 'Temperature', 300, 'Pressure', 1e5, 'Normal'}), 'arguments');
    capeOpenWarnings(false);
    check(client_outputs == 0, '%d outputs', client_outputs);
    capeOpenBackend('isolated');
    check(isequal(capeOpenBackend('native'), 'native'), 'and back');
    check_native(root);
end

% Which closes its packages and ends its process.
function a_choice_first_lets_go_of_what_was_called_before(toolbox)
    global cleared called_then
    root = installed(toolbox);
    client = fullfile(root, 'isolated', 'Verdanth.m');
    capeOpenBackend('native');
    check(isempty(cleared), 'nothing changes');
    capeOpenBackend('isolated');
    check(isequal(sort(cleared), {'Verdanth', 'VerdanthClient'}), 'the library');
    check(~isequal(called_then, client), 'when it is %s that is called', called_then);
    cleared = {};
    capeOpenBackend('isolated');
    check(isempty(cleared), 'nothing changes');
    capeOpenBackend('native');
    check(isequal(sort(cleared), {'Verdanth', 'VerdanthClient'}), 'the client');
    check(isequal(called_then, client), 'when it is %s that is called', called_then);
end

function a_time_limit_is_set(toolbox)
    installed(toolbox);
    limit = @() getenv('VERDANTH_TIME_LIMIT');
    capeOpenBackend('isolated', 'TimeLimit', 2.5);
    check(isequal(limit(), '2.5'), '%s', limit());
    capeOpenBackend('isolated');
    check(isequal(limit(), '2.5'), 'it stays: %s', limit());
    capeOpenBackend('isolated', 'timelimit', Inf);
    check(isempty(limit()), '%s', limit());
end

function a_back_end_that_does_not_start_leaves_the_one_before(toolbox)
    global client_failure
    root = installed(toolbox);
    setenv('VERDANTH_TIME_LIMIT', '7');
    client_failure = 'VerdanthHost64.exe was not found: it is nowhere';
    message = message_of(@() capeOpenBackend('isolated', 'TimeLimit', 3));
    check(strncmp(message, client_failure, numel(client_failure)), '%s', message);
    check_native(root);
    check(isequal(getenv('VERDANTH_TIME_LIMIT'), '7'), '%s', getenv('VERDANTH_TIME_LIMIT'));
end

function what_can_not_be_chosen_is_told(toolbox)
    root = installed(toolbox);
    check_messages(fullfile(root, 'toolbox'), {
        'Backend', 'The back end ''windows'' is for Octave on Linux', @() capeOpenBackend('windows')
        'Backend', 'Unknown back end "..."; there are ''native'', ''isolated'' and ''windows''', @() capeOpenBackend('mac')
        'Backend', 'Expected ''Prefix'' or ''TimeLimit'' and a value for it', @() capeOpenBackend('isolated', 'Prefix', '/')
        'Backend', 'Expected ''Prefix'' or ''TimeLimit'' and a value for it', @() capeOpenBackend('native', 'TimeLimit', 1)
        'Backend', 'Expected a positive number for ''TimeLimit''', @() capeOpenBackend('isolated', 'TimeLimit', 0)
        });
    delete(fullfile(root, 'isolated', 'VerdanthClient.mexw64'));
    check_messages(fullfile(root, 'toolbox'), {
        'Backend', 'The back end ''isolated'' was not found: there is no ...', @() capeOpenBackend('isolated')
        });
    check_native(root);
end

% What lies in the current folder is called, whatever is on the path.
function the_current_folder_does_not_hide_the_choice(toolbox)
    global cleared
    root = installed(toolbox);
    before = cd(fileparts(which('Verdanth')));
    check_messages(fullfile(root, 'toolbox'), {
        'Backend', 'The back end can not be changed in the folder ...: go to another by cd', @() capeOpenBackend('isolated')
        });
    capeOpenBackend('native');
    cd(before);
    check(isempty(cleared), 'packages are closed');
    check_native(root);
end

function octave_does_not_have_it(toolbox)
    check_messages(toolbox, {
        'Backend', 'The back end ''isolated'' is for Windows', @() capeOpenBackend('isolated')
        });
end

run_test(argv());
