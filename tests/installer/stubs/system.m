function status = system(command)
% Remembers the command; every one fails after `commands_that_work`.
global commands commands_that_work
commands{end + 1} = command;
status = numel(commands) > commands_that_work;
end
