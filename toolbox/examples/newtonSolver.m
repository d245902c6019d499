% Derivatives in a Newton solver: the temperature behind a throttle valve.
%
%   A valve keeps the enthalpy. The package tells the derivative of the enthalpy with respect to temperature together
%   with the enthalpy itself, and Newton's method doubles the number of correct digits with each call. The secant
%   method, which has only the values, needs more calls.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
Z = [0.9 0.06 0.02 0 0 0 0 0 0.01 0.01 0];
T1 = 320;   % K
P1 = 150e5; % Pa, before the valve
P2 = 20e5;  % behind it
goal = p.single('enthalpy', T1, P1, Z, 'Vapor');

T = T1;
for k = 1:20
    [H, slope] = p.single('enthalpy enthalpy.Dtemperature', T(end), P2, Z, 'Vapor');
    newton(k) = abs(H - goal); %#ok<SAGROW>
    if newton(k) < 1e-8 * abs(goal)
        break
    end
    T(end + 1) = T(end) - (H - goal) / slope; %#ok<SAGROW>
end
fprintf('%.1f K before the valve, %.3f K behind it, found in %d calls\n', T1, T(end), numel(newton));

S = [T1, T1 - 1];
F = p.single('enthalpy', S.', P2, Z, 'Vapor').' - goal;
while abs(F(end)) > 1e-8 * abs(goal) && numel(F) < 20
    S(end + 1) = S(end) - F(end) * (S(end) - S(end - 1)) / (F(end) - F(end - 1)); %#ok<SAGROW>
    F(end + 1) = p.single('enthalpy', S(end), P2, Z, 'Vapor') - goal; %#ok<SAGROW>
end
fprintf('the secant method took %d calls\n', numel(F));

% The same derivatives tell how much a valve cools: the Joule-Thomson coefficient, -(dH/dP) / (dH/dT).
[grid.T, grid.P] = meshgrid(250:5:400, (10:5:300) * 1e5);
[perT, perP] = p.single('enthalpy.Dtemperature enthalpy.Dpressure', grid.T(:), grid.P(:), Z, 'Vapor');
coefficient = reshape(-perP ./ perT, size(grid.T)) * 1e5; % K/bar

figure();
subplot(1, 2, 1);
smallest = eps * abs(goal); % what a logarithmic axis can show
semilogy(1:numel(newton), max(newton, smallest), 'ro-', 1:numel(F), max(abs(F), smallest), 'bs--');
xlabel('calls of the package');
ylabel('error in the enthalpy / (J/mol)');
legend({'Newton', 'secant'}, 'Location', 'southwest');
title('Convergence');
subplot(1, 2, 2);
contour(grid.T, grid.P / 1e5, coefficient, 12);
colorbar();
xlabel('temperature / K');
ylabel('pressure / bar');
title('Joule-Thomson coefficient / (K/bar)');
