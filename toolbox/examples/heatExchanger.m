% T-Q curves of a heat exchanger: a gas that condenses as it is cooled, against a cold gas of higher pressure.
%
%   Both streams are flashed at many temperatures; their enthalpies tell how much heat goes over up to there. The curves
%   show whether the cold stream is the colder one everywhere: where both phases are present they bend.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
Z = [0.80 0.09 0.05 0.02 0.01 0.01 0 0 0.01 0.01 0];
hot = struct('Z', Z, 'P', 40e5, 'in', 300, 'flow', 100);  % K, mol/s
cold = struct('Z', [1, zeros(1, 10)], 'P', 20e5, 'in', 200, 'flow', 160);
approach = 5; % K, the least difference in temperature

% Enthalpy flow along each stream, in W.
T = (cold.in:0.5:hot.in).';
hot.H = hot.flow * p.multiflash(hot.Z, 'Temperature', T, 'Pressure', hot.P, 'enthalpy');
cold.H = cold.flow * p.multiflash(cold.Z, 'Temperature', T, 'Pressure', cold.P, 'enthalpy');

% The largest duty Q at which the curves keep their distance. Heat is counted from the cold end.
temperatures = @(Q, part) deal(interp1(hot.H, T, hot.H(end) - Q * (1 - part)), ...
                               interp1(cold.H, T, cold.H(1) + Q * part));
part = linspace(0, 1, 400).';
low = 0;
high = min(hot.H(end) - hot.H(1), cold.H(end) - cold.H(1));
while high - low > 1e-6 * high
    Q = (low + high) / 2;
    [a, b] = temperatures(Q, part);
    if min(a - b) > approach
        low = Q;
    else
        high = Q;
    end
end
[a, b] = temperatures(low, part);
[~, pinch] = min(a - b);
fprintf('%.1f kW go over; the gas leaves at %.1f K, the cold stream at %.1f K\n', low / 1e3, a(1), b(end));
fprintf('the least difference, %.1f K, is at %.1f and %.1f K\n', a(pinch) - b(pinch), a(pinch), b(pinch));

figure();
heat = part * low / 1e3; % kW
plot(heat, a, 'r-', heat, b, 'b-', heat([pinch, pinch]), [a(pinch), b(pinch)], 'ko-');
xlabel('heat / kW');
ylabel('temperature / K');
title('Heat exchanger');
legend({'gas, condensing', 'methane', 'pinch'}, 'Location', 'northwest');
