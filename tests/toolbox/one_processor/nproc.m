function n = nproc()
% A machine with a single processor.
n = 1;
end
