% Dew points of a natural gas: how little of a heavy compound raises them, and what condenses as the pressure falls.
%
%   The highest temperature at which a gas still has liquid, its cricondentherm, is what pipelines limit. It is found on
%   the phase envelope. At a temperature between that and the critical one, a gas gives liquid when the pressure falls.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
lean = [0.88 0.06 0.02 0.005 0.005 0 0 0 0.02 0.01 0];
names = p.Compounds;
heavy = find(strcmp(names, 'n-hexane'));

figure();
amounts = [0.001 0.003 0.01];
colors = {'b', 'g', 'r'};
labels = cell(size(amounts));
subplot(1, 2, 1);
for k = 1:numel(amounts)
    Z = lean;
    Z(heavy) = amounts(k);
    Z = Z / sum(Z);
    [T, P, vaporFraction] = capeOpenPhaseEnvelope(p.Handle, Z);
    curves(k) = struct('T', T(vaporFraction == 1), 'P', P(vaporFraction == 1)); %#ok<SAGROW>
    [hottest, at] = max(curves(k).T);
    labels{k} = sprintf('%g %% hexane', 100 * amounts(k));
    fprintf('%g %% of n-hexane: liquid up to %.1f K, at %.1f bar\n', 100 * amounts(k), hottest, curves(k).P(at) / 1e5);
end
hold on
for k = 1:numel(amounts)
    plot(curves(k).T, curves(k).P / 1e5, [colors{k} '-']);
end
hold off
title('Dew points');
xlabel('temperature / K');
ylabel('pressure / bar');
legend(labels, 'Location', 'northwest');

% What condenses of the last gas at one temperature, as the pressure falls.
subplot(1, 2, 2);
T = hottest - 10;
P = linspace(1e5, 120e5, 240).';
vapor = p.multiflash(Z, 'Temperature', T, 'Pressure', P, 'vaporFraction');
plot(P / 1e5, 100 * (1 - vapor), 'r-');
title(sprintf('Condensate at %.0f K', T));
xlabel('pressure / bar');
ylabel('liquid / mol %');
[most, at] = max(1 - vapor);
fprintf('at %.0f K most condenses at %.1f bar: %.2f %% of the moles\n', T, P(at) / 1e5, 100 * most);
