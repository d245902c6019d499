function name = computer()
% The kind of machine that a test asks for.
global machine
name = machine;
end
