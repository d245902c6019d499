function answer = someoneWatches()
%someoneWatches  Whether there is a person before the command window: not in a script, a test or a job of a queue.
answer = false;
if exist('OCTAVE_VERSION', 'builtin')
    if isguirunning()
        answer = true;
    elseif strncmp(program_name(), 'octave', 6) && ~any(strncmp(argv(), '--eval', 6)) % else a script
        % Output of a pipe or a file is no character device, but for the null device. Windows has no such names.
        [input, none] = stat('/dev/stdin');
        output = stat('/dev/stdout');
        null = stat('/dev/null');
        answer = none ~= 0 || (input.modestr(1) == 'c' && output.modestr(1) == 'c' && output.rdev ~= null.rdev);
    end
else
    answer = usejava('desktop') && (~exist('batchStartupOptionUsed') || ~batchStartupOptionUsed());
end
end
