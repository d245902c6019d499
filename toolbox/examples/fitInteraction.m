% Fitting an interaction parameter: kij of the Peng-Robinson equation for two compounds, from equilibrium data.
%
%   The data are flashes of the package at one temperature, as measured ones would be: pressure, liquid and vapor
%   compositions. The equation that is fitted is the short one of boilingPressures.m; it takes critical constants and
%   acentric factors from the package. For each value of kij the pressures at which the liquids boil are calculated, and
%   fminbnd looks for the value that comes closest.
addpath(fileparts(mfilename('fullpath')), fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
names = {'carbon dioxide', 'ethane'};
pair = cellfun(@(name) find(strcmp(p.Compounds, name)), names);
T = 263.15; % K

% Data: a flash of a mixture between the lines has both phases of a tie line.
[x, P, y] = capeOpenPxy(p.Handle, names, T);
data = zeros(0, 3); % P, x, y
for k = find(abs(x - y) > 0.01).'
    Z = zeros(1, numel(p.Compounds));
    Z(pair) = [x(k) + y(k), 2 - x(k) - y(k)] / 2;
    r = p.flash(Z, 'Temperature', T, 'Pressure', P(k));
    fraction = r.compositions(:, pair(1));
    data(end + 1, :) = [r.P, fraction(strcmp(r.phases, 'Liquid')), fraction(strcmp(r.phases, 'Vapor'))]; %#ok<SAGROW>
end

critical = struct('T', p.constant('criticalTemperature'), 'P', p.constant('criticalPressure'), ...
                  'acentric', p.constant('acentricFactor'));
model = struct('Tc', critical.T(pair), 'Pc', critical.P(pair), 'acentric', critical.acentric(pair), 'T', T);
boiling = @(kij) boilingPressures(model, kij, data);
deviation = @(kij) boiling(kij) ./ data(:, 1) - 1;
kij = fminbnd(@(kij) sum(deviation(kij) .^ 2), -0.1, 0.3, optimset('TolX', 1e-8));
fprintf('kij of %s and %s at %g K: %.4f, from %d points\n', names{:}, T, kij, size(data, 1));
fprintf('pressures are met within %.2g %%; with kij = 0 within %.2g %%\n', ...
        100 * max(abs(deviation(kij))), 100 * max(abs(deviation(0))));

figure();
plot(data(:, 2), data(:, 1) / 1e5, 'ko', data(:, 3), data(:, 1) / 1e5, 'k^', ...
     data(:, 2), boiling(kij) / 1e5, 'b-', data(:, 2), boiling(0) / 1e5, 'r--');
xlabel(['mole fraction of ' names{1}]);
ylabel('pressure / bar');
title(sprintf('%s and %s at %g K', names{:}, T));
legend({'data, liquid', 'data, vapor', sprintf('k_{ij} = %.4f', kij), 'k_{ij} = 0'}, 'Location', 'southeast');
