% Water dew point of a gas: how much water it can carry, and where the first drop appears.
%
%   The dew point is a flash at a pressure and a vapor fraction of 1. What the first drop consists of, water or heavy
%   hydrocarbons, its composition tells. How much water a gas carries when it is saturated is the vapor of a flash with
%   more water than it can take; beside it is what Bukacek (1955) found in measurements. The equation of the package
%   gives less, which makes dew points 3 to 4 K too low. There are no solids in it: below 273.15 K read the points as
%   those of water that does not freeze, and hydrates may form above them.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Wet gas and hydrocarbons');
water = strcmp(p.Compounds, 'water').';
dry = zeros(1, numel(p.Compounds));
dry(strcmp(p.Compounds, 'methane')) = 0.93;
dry(strcmp(p.Compounds, 'ethane')) = 0.04;
dry(strcmp(p.Compounds, 'propane')) = 0.01;
dry(strcmp(p.Compounds, 'nitrogen')) = 0.01;
dry(strcmp(p.Compounds, 'carbon dioxide')) = 0.01;

% Water in the saturated gas, in parts per million of the moles.
T = (275:5:320).';
P = [20e5, 60e5, 100e5];
content = zeros(numel(T), numel(P));
for j = 1:numel(P)
    for k = 1:numel(T)
        r = p.flash(0.9 * dry + 0.1 * water, 'Temperature', T(k), 'Pressure', P(j));
        content(k, j) = r.compositions(strcmp(r.phases, 'Vapor'), water);
    end
end
boiling = p.tdep('vaporPressure', T);
boiling = boiling(:, water);
fahrenheit = (T - 273.15) * 1.8 + 32;
measured = boiling ./ P + 10 .^ (6.69449 - 3083.87 ./ (459.6 + fahrenheit)) / 47484;
fprintf('water in the saturated gas, in parts per million, and by Bukacek:\n%8s', 'K');
fprintf('%12g bar     ', P / 1e5);
fprintf('\n');
for k = 1:numel(T)
    fprintf('%8g', T(k));
    fprintf('%12.0f (%5.0f)', 1e6 * [content(k, :); measured(k, :)]);
    fprintf('\n');
end

% The dew points of gases with a given content of water, over the pressure.
parts = [50, 200, 800]; % per million
pressures = exp(linspace(log(2e5), log(120e5), 40)).';
dew = zeros(numel(pressures), numel(parts));
for j = 1:numel(parts)
    amount = 1e-6 * parts(j);
    Z = (1 - amount) * dry + amount * water;
    dew(:, j) = p.multiflash(Z, 'Pressure', pressures, 'vaporFraction', 1, 'Temperature');
end
r = p.flash(Z, 'Pressure', 60e5, 'vaporFraction', 1);
drop = find(r.fractions == min(r.fractions), 1);
fprintf('with %g parts per million the first drop at 60 bar appears at %.1f K, and is %.2f %% water\n', ...
        parts(end), r.T, 100 * r.compositions(drop, water));

figure();
subplot(1, 2, 1);
colors = {'b', 'g', 'r'};
for j = 1:numel(P)
    semilogy(T, 1e6 * content(:, j), [colors{j} '-'], T, 1e6 * measured(:, j), [colors{j} 'o']);
    hold on
end
hold off
xlabel('temperature / K');
ylabel('water / parts per million');
legend({'20 bar', 'Bukacek', '60 bar', 'Bukacek', '100 bar', 'Bukacek'}, 'Location', 'southeast');
title('Water in the saturated gas');
subplot(1, 2, 2);
plot(dew, pressures / 1e5);
xlabel('temperature / K');
ylabel('pressure / bar');
legend({'50 ppm', '200 ppm', '800 ppm'}, 'Location', 'northwest');
title('Water dew points');
