% Quick start: a package, a flash, a table of flashes and a diagram.
%
%   From the command line:  octave --persist toolbox/examples/quickStart.m
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas')
Z = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0]; % mole fractions, in the order of p.Compounds

% One flash: at 220 K and 40 bar the gas is vapor and liquid.
p.flash(Z, 'Temperature', 220, 'Pressure', 40e5)
r = p.flash(Z, 'Temperature', 220, 'Pressure', 40e5);
for k = 1:numel(r.phases)
    density = p.single('density', r.T, r.P, r.compositions(k, :), r.phases{k});
    fprintf('  density of the %s: %.1f %s\n', lower(r.phases{k}), density, p.unit('density'));
end

% Many flashes in one call.
T = (200:10:300).';
[fraction, enthalpy] = p.multiflash(Z, 'Temperature', T, 'Pressure', 40e5, 'vaporFraction enthalpy');
fprintf('\n  T / K   vapor fraction   enthalpy / (%s)\n', p.unit('enthalpy'));
fprintf('  %5.0f %16.4f %20.1f\n', [T, fraction, enthalpy].');

% Where there are two phases, and where in it these flashes are.
figure();
capeOpenPhaseEnvelope(p.Handle, Z);
hold on
plot(T, 40 * ones(size(T)), 'g.', 'MarkerSize', 12, 'DisplayName', 'the table');
plot(r.T, r.P / 1e5, 'ms', 'DisplayName', 'the flash');
hold off
title('A natural gas');
