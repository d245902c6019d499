function critical = criticalConstants(handle, compounds)
%criticalConstants  Critical temperatures and pressures and acentric factors of some compounds, by their indices.
names = {'criticalTemperature', 'criticalPressure', 'acentricFactor'};
fields = {'T', 'P', 'acentric'};
critical = struct();
for k = 1:3
    values = capeOpenConstant(handle, names{k});
    critical.(fields{k}) = reshape(values(compounds), 1, []);
end
end
