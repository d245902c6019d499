% A valve: how cold it gets behind it, and what becomes liquid or vapor there.
%
%   A valve takes no heat and gives no work, so the enthalpy stays what it was. A flash at the pressure behind it and
%   that enthalpy gives temperature and phases; for all pressures it is one call. A gas cools and condenses in part, a
%   boiling liquid evaporates in part.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
gas = [0.85 0.07 0.04 0.01 0.01 0.005 0.005 0 0.005 0.005 0];
T1 = 290;                               % K
P1 = 120e5;                             % Pa
P2 = linspace(P1, 5e5, 47).';

H = p.multiflash(gas, 'Temperature', T1, 'Pressure', P1, 'enthalpy');
[T2, vapor] = p.multiflash(gas, 'Pressure', P2, 'enthalpy', H, 'Temperature vaporFraction');
[wettest, at] = min(vapor);
fprintf('gas of %g K and %g bar: %.1f K behind the valve at %g bar\n', T1, P1 / 1e5, T2(end), P2(end) / 1e5);
fprintf('most condenses at %.1f bar: %.2f %% of the moles\n', P2(at) / 1e5, 100 * (1 - wettest));

% Whether the energies add up: the phases behind the valve carry what came in.
r = p.flash(gas, 'Pressure', P2(at), 'enthalpy', H);
carried = 0;
for k = 1:numel(r.phases)
    carried = carried + r.fractions(k) * p.single('enthalpy', r.T, r.P, r.compositions(k, :), r.phases{k});
end
fprintf('the energy balance is off by %.1e J/mol\n', abs(carried - H));

% Boiling propane at 300 K, let down to each pressure.
propane = double(strcmp(p.Compounds, 'propane')).';
[P3, H3] = p.multiflash(propane, 'Temperature', 300, 'vaporFraction', 0, 'Pressure enthalpy');
P4 = linspace(P3, 101325, 47).';
[T4, boiled] = p.multiflash(propane, 'Pressure', P4, 'enthalpy', H3, 'Temperature vaporFraction');
fprintf('boiling propane of 300 K: %.1f K at one atmosphere, and %.1f %% of it vapor\n', T4(end), 100 * boiled(end));

figure();
subplot(1, 2, 1);
plot(P2 / P1, T2, 'r-', P4 / P3, T4, 'b--');
xlabel('pressure behind / before the valve');
ylabel('temperature / K');
legend({'gas', 'boiling propane'}, 'Location', 'southeast');
title('Temperature behind a valve');
subplot(1, 2, 2);
plot(P2 / P1, 100 * (1 - vapor), 'r-', P4 / P3, 100 * boiled, 'b--');
xlabel('pressure behind / before the valve');
ylabel('mol %');
legend({'liquid in the gas', 'vapor in the propane'}, 'Location', 'northeast');
title('What changes its phase');
