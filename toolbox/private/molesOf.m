function [Z, restore] = molesOf(handle, Z)
%molesOf  Mole fractions of a composition in the basis of the moment, and mole basis until RESTORE goes.
[restore, mass] = moleBasis();
if mass
    Z = Z ./ capeOpenConstant(handle, 'molecularWeight');
    Z = Z / sum(Z);
end
end
