function [h, Z] = open_natural_gas()
% The natural gas of natural_gas, opened.
[manager, package, Z] = natural_gas();
h = capeOpenCreate(manager, package);
end
