% A compressor: the isentropic and the real state behind it, and the work it takes.
%
%   Without losses the entropy stays what it was: a flash at the outlet pressure and the entropy of the inlet gives the
%   temperature and the least work. With the efficiency that gives the real work, thus the enthalpy, and a flash at
%   pressure and enthalpy the real temperature. Each is one call for all outlet pressures.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
Z = [0.85 0.08 0.03 0.01 0 0 0 0 0.02 0.01 0];
T1 = 300;          % K
P1 = 20e5;         % Pa
efficiency = 0.78;
P2 = linspace(P1, 100e5, 33).';

[H1, S1] = p.multiflash(Z, 'Temperature', T1, 'Pressure', P1, 'enthalpy entropy');
[Ts, Hs] = p.multiflash(Z, 'Pressure', P2, 'entropy', S1, 'Temperature enthalpy');
least = Hs - H1;
work = least / efficiency;
T2 = p.multiflash(Z, 'Pressure', P2, 'enthalpy', H1 + work, 'Temperature');
fprintf('from %g to %g bar: %.0f J/mol without losses, %.0f J/mol with an efficiency of %g\n', ...
        P1 / 1e5, P2(end) / 1e5, least(end), work(end), efficiency);
fprintf('outlet at %.1f K without losses, at %.1f K with them\n', Ts(end), T2(end));

% The least work is the integral of volume over pressure along the isentrope, which tests the numbers.
volume = p.single('volume', Ts, P2, Z, 'Vapor');
fprintf('the integral of the volume over the pressure: %.0f J/mol\n', trapz(P2, volume));

figure();
subplot(1, 2, 1);
plot(P2 / P1, T2, 'r-', P2 / P1, Ts, 'b--');
xlabel('pressure ratio');
ylabel('outlet temperature / K');
legend({'with losses', 'isentropic'}, 'Location', 'northwest');
title('Outlet temperature');
subplot(1, 2, 2);
plot(P2 / P1, work / 1e3, 'r-', P2 / P1, least / 1e3, 'b--');
xlabel('pressure ratio');
ylabel('work / (kJ/mol)');
legend({'with losses', 'isentropic'}, 'Location', 'northwest');
title('Work');
