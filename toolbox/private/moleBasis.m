function [restore, mass] = moleBasis()
%moleBasis  Changes to mole basis until RESTORE goes; MASS tells whether it was mass basis.
%
%   The library does not tell its basis, but the unit of a density does.
mass = strcmp(capeOpenPropUnit('density'), 'kg / m3');
restore = [];
if mass
    capeOpenBasis('mole');
    restore = onCleanup(@() capeOpenBasis('mass'));
end
end
