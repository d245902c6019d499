function [restore, mass] = moleBasis()
%moleBasis  Changes to mole basis until RESTORE goes; MASS tells whether it was mass basis.
mass = capeopen.internal.isMassBasis();
restore = [];
if mass
    capeOpenBasis('mole');
    restore = onCleanup(@() capeOpenBasis('mass'));
end
end
