function pool = gcp()
% A pool of three workers.
pool = struct('NumWorkers', 3);
end
