function [symbols, factors, dimensions, offsets] = unitTable()
%unitTable  The units that can be converted: value in the base units of SI = value * factor + offset.
%
%   DIMENSIONS has a row for each unit, the exponents of kg, m, s, K, mol and A.
mass = [1 0 0 0 0 0];
long = [0 1 0 0 0 0];
time = [0 0 1 0 0 0];
warmth = [0 0 0 1 0 0];
amount = [0 0 0 0 1 0];
force = mass + long - 2 * time;
pressure = force - 2 * long;
energy = force + long;
rows = {
    'kg', 1, mass, 0
    'g', 1e-3, mass, 0
    'gr', 1e-3, mass, 0 % as the library writes it
    'mg', 1e-6, mass, 0
    't', 1e3, mass, 0
    'lb', 0.45359237, mass, 0
    'm', 1, long, 0
    'km', 1e3, long, 0
    'cm', 1e-2, long, 0
    'mm', 1e-3, long, 0
    'ft', 0.3048, long, 0
    'in', 0.0254, long, 0
    'l', 1e-3, 3 * long, 0
    'ml', 1e-6, 3 * long, 0
    's', 1, time, 0
    'min', 60, time, 0
    'h', 3600, time, 0
    'd', 86400, time, 0
    'K', 1, warmth, 0
    'degC', 1, warmth, 273.15
    'degF', 5 / 9, warmth, 459.67 * 5 / 9
    'degR', 5 / 9, warmth, 0
    'mol', 1, amount, 0
    'mmol', 1e-3, amount, 0
    'kmol', 1e3, amount, 0
    'lbmol', 453.59237, amount, 0
    'N', 1, force, 0
    'mN', 1e-3, force, 0
    'kN', 1e3, force, 0
    'dyn', 1e-5, force, 0
    'Pa', 1, pressure, 0
    'hPa', 1e2, pressure, 0
    'kPa', 1e3, pressure, 0
    'MPa', 1e6, pressure, 0
    'mbar', 1e2, pressure, 0
    'bar', 1e5, pressure, 0
    'atm', 101325, pressure, 0
    'Torr', 101325 / 760, pressure, 0
    'mmHg', 133.322387415, pressure, 0
    'psi', 0.45359237 * 9.80665 / 0.0254 ^ 2, pressure, 0
    'J', 1, energy, 0
    'kJ', 1e3, energy, 0
    'MJ', 1e6, energy, 0
    'GJ', 1e9, energy, 0
    'cal', 4.184, energy, 0
    'kcal', 4184, energy, 0
    'Btu', 1055.05585262, energy, 0
    'Wh', 3600, energy, 0
    'kWh', 3.6e6, energy, 0
    'W', 1, energy - time, 0
    'mW', 1e-3, energy - time, 0
    'kW', 1e3, energy - time, 0
    'MW', 1e6, energy - time, 0
    'P', 0.1, pressure + time, 0
    'cP', 1e-3, pressure + time, 0
    'C', 1, [0 0 1 0 0 1], 0
    };
symbols = rows(:, 1);
factors = [rows{:, 2}].';
dimensions = vertcat(rows{:, 3});
offsets = [rows{:, 4}].';
end
