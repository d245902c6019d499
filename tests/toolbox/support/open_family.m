function [h, Z] = open_family(family, seed)
% A mixture of mixture_of_family, its package opened.
[package, Z] = mixture_of_family(family, seed);
h = capeOpenCreate('Verdanth Reference Packages', package);
end
