% A distillation column by the bubble-point method: propane and butanes from pentanes in a few stages.
%
%   Each stage is an equilibrium of boiling liquid and its vapor. The flows are taken as the same from stage to stage in
%   each section. In turns, the balances of all stages are solved for the liquids, which is a tridiagonal system for
%   each compound, and the liquids are brought to their boiling points by flashes at pressure and vapor fraction 0,
%   which give new ratios K of vapor to liquid fractions. (Wang and Henke 1966.)
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
names = p.Compounds;
feed = zeros(1, numel(names));
feed(ismember(names, {'propane', 'n-butane', 'n-pentane', 'n-hexane'})) = [0.3 0.3 0.25 0.15];
P = 8e5;          % Pa
stages = 12;      % the first is the condenser, the last the reboiler
feedStage = 6;
F = 100;          % mol/s of boiling feed
D = 60;           % of distillate, liquid
reflux = 2;

% Flows of liquid and vapor that leave each stage.
above = (1:stages).' < feedStage;
L = reflux * D + F * ~above;
L(end) = F - D;
V = (reflux + 1) * D * ones(stages, 1);
V(1) = 0; % a total condenser
given = zeros(stages, 1);
given(feedStage) = F;
drawn = zeros(stages, 1);
drawn(1) = D;

x = repmat(feed, stages, 1);
T = zeros(stages, 1);
K = zeros(stages, numel(names));
for turn = 1:500
    before = T;
    for j = 1:stages
        r = p.flash(x(j, :), 'Pressure', P, 'vaporFraction', 0);
        T(j) = r.T;
        liquid = r.compositions(strcmp(r.phases, 'Liquid'), :);
        vapor = r.compositions(strcmp(r.phases, 'Vapor'), :);
        present = liquid > 0;
        K(j, present) = vapor(present) ./ liquid(present);
    end
    if max(abs(T - before)) < 1e-6
        break
    end
    for i = find(feed > 0)
        % Into the stage: liquid from above, vapor from below, feed. Out of it: liquid, vapor, distillate.
        A = diag(L + drawn + V .* K(:, i)) - diag(L(1:end - 1), -1) - diag(V(2:end) .* K(2:end, i), 1);
        x(:, i) = A \ (given * feed(i));
    end
    x = max(x, 0) ./ repmat(sum(max(x, 0), 2), 1, numel(names));
end

distillate = x(1, :);
bottoms = x(end, :);
present = find(feed > 0);
fprintf('%d turns; %.1f K in the condenser, %.1f K in the reboiler\n', turn, T(1), T(end));
fprintf('%-12s %8s %12s %9s %10s\n', '', 'feed', 'distillate', 'bottoms', 'recovered');
for i = present
    fprintf('%-12s %8.4f %12.4f %9.4f %8.1f %%\n', names{i}, feed(i), distillate(i), bottoms(i), ...
            100 * D * distillate(i) / (F * feed(i)));
end
fprintf('largest error of a balance: %.1e mol/s\n', max(abs(F * feed - D * distillate - (F - D) * bottoms)));

figure();
subplot(1, 2, 1);
plot(T, 1:stages, 'ko-');
set(gca(), 'YDir', 'reverse');
xlabel('temperature / K');
ylabel('stage');
title('Temperature');
subplot(1, 2, 2);
plot(x(:, present), 1:stages, 'o-');
set(gca(), 'YDir', 'reverse');
xlabel('mole fraction in the liquid');
ylabel('stage');
title('Liquids');
legend(names(present), 'Location', 'southeast');
