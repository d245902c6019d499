function v = waiting(v, ~)
% A fault for the faulty library: says that it has begun, and takes longer than a test waits for.
disp('begun');
fflush(stdout);
pause(100);
end
