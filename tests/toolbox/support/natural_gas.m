function [manager, package, Z] = natural_gas()
% The names of a package, and a composition for it.
manager = 'Verdanth Reference Packages';
package = 'Natural gas';
Z = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
end
