function pool = gcp()
% A pool of three workers, or of as many as `size_of_pool` says; behind it stand the sizes of those after a loss.
global size_of_pool
pool = struct('NumWorkers', [size_of_pool, 3](1));
end
