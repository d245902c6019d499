function [program, arguments] = hostCommand(file)
%hostCommand  What starts the host process: a program, and its arguments.
program = file;
arguments = {};
end
