function model = equilibriumModel(handle, compounds)
%equilibriumModel  What the lines of equilibrium need to know of a package: its phases, and how it gives derivatives.
%
%   COMPOUNDS are the indices of those that are present; fugacities work on these alone.
[vapor, liquid] = vaporAndLiquid(handle);
base = 'logFugacityCoefficient';
names = {base, 'density', [base, '.Dtemperature'], [base, '.Dpressure'], [base, '.Dmoles']};
model = struct();
model.handle = handle;
model.labels = {vapor, liquid};
model.compounds = compounds;
model.count = numel(capeOpenCompoundList(handle));
model.names = names;
model.analytic = all(ismember(lower(names), lower(capeOpenSinglePhasePropList(handle))));
end
