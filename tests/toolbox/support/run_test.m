function run_test(inputs)
% Calls the test function that the command line names, TEST TOOLBOX VERDANTH, and ends Octave with 1 if it fails.
[test, toolbox, folder_of_verdanth] = inputs{:};
addpath(toolbox, folder_of_verdanth);
warning('off', 'Octave:gnuplot-graphics');
failure = message_of(@() feval(test, toolbox));
if ~isempty(failure)
    fprintf(stderr, '%s\n', failure);
    exit(1);
end
end
