% A cascade of flash drums: oil and gas part in three steps, and the pressure of the middle one decides how well.
%
%   Each drum is a flash at temperature and pressure; its liquid goes on to the next one. In one step much of what could
%   stay liquid leaves with the gas. The pressure of the drum in the middle at which most stays liquid is what is looked
%   for. What heat a drum needs follows from the enthalpies of what enters and leaves.
addpath(fileparts(fileparts(mfilename('fullpath'))));
p = capeopen.Package('Verdanth Reference Packages', 'Wet gas and hydrocarbons');
amounts = struct('methane', 40, 'ethane', 8, 'propane', 7, 'n_butane', 6, 'n_pentane', 6, 'n_hexane', 7, ...
                 'n_heptane', 8, 'n_octane', 8, 'n_decane', 10);
Z = zeros(1, numel(p.Compounds));
for name = fieldnames(amounts).'
    Z(strcmp(p.Compounds, strrep(name{1}, '_', '-'))) = amounts.(name{1});
end
Z = Z / sum(Z);
inlet = struct('T', 340, 'P', 100e5);
T = [320, 310, 298.15];                 % of the drums, K
P = [60e5, 8e5, 101325];                % Pa

% One drum after the other: moles for each mole of feed.
liquid = Z;
gas = zeros(numel(P), numel(Z));
H = p.multiflash(Z, 'Temperature', inlet.T, 'Pressure', inlet.P, 'enthalpy');
[heat, mismatch] = deal(zeros(1, numel(P)));
fprintf('%6s %9s %12s %12s %12s\n', 'drum', 'bar', 'gas', 'liquid', 'heat J/mol');
for k = 1:numel(P)
    r = p.flash(liquid / sum(liquid), 'Temperature', T(k), 'Pressure', P(k));
    whole = p.multiflash(liquid / sum(liquid), 'Temperature', T(k), 'Pressure', P(k), 'enthalpy');
    flows = sum(liquid) * r.fractions(:) .* r.compositions;
    vapor = strcmp(r.phases, 'Vapor');
    Hout = zeros(1, numel(r.phases));
    for j = 1:numel(r.phases)
        Hout(j) = sum(flows(j, :)) * p.single('enthalpy', T(k), P(k), r.compositions(j, :), r.phases{j});
    end
    heat(k) = sum(Hout) - H;
    mismatch(k) = abs(sum(Hout) - sum(liquid) * whole);
    gas(k, :) = flows(vapor, :);
    liquid = sum(flows(~vapor, :), 1);
    H = sum(Hout(~vapor));
    fprintf('%6d %9.2f %12.4f %12.4f %12.0f\n', k, P(k) / 1e5, sum(gas(k, :)), sum(liquid), heat(k));
end
pentane = strcmp(p.Compounds, 'n-pentane');
fprintf('n-pentane in the last drum: %.4f of the gas, %.4f of the liquid\n', gas(end, pentane) / sum(gas(end, :)), ...
        liquid(pentane) / sum(liquid));
fprintf('the balance of no compound is off by more than %.1e\n', max(abs(Z - liquid - sum(gas, 1))));
fprintf('the phases of a drum carry what a flash says of the whole, within %.1e J/mol\n', max(mismatch));

% All in one step, for comparison: what stays liquid, in moles and in kilograms.
r = p.flash(Z, 'Temperature', T(end), 'Pressure', P(end));
once = r.fractions(strcmp(r.phases, 'Liquid')) * r.compositions(strcmp(r.phases, 'Liquid'), :);
weights = p.MolecularWeights(:);
fprintf('of %.2f g of feed %.2f g stay liquid in three steps, %.2f g in one\n', ...
        [Z; liquid; once] * weights);

% The pressure of the middle drum, from that of the last one to that of the first.
middle = exp(linspace(log(1.2e5), log(50e5), 30));
kept = zeros(size(middle));
for k = 1:numel(middle)
    steps = [P(1), middle(k), P(3)];
    left = Z;
    for j = 1:3
        r = p.flash(left / sum(left), 'Temperature', T(j), 'Pressure', steps(j));
        at = strcmp(r.phases, 'Liquid');
        left = sum(left) * r.fractions(at) * r.compositions(at, :);
    end
    kept(k) = left * weights;
end
[most, best] = max(kept);
fprintf('most, %.2f g, stays liquid with %.1f bar in the middle drum\n', most, middle(best) / 1e5);

figure();
subplot(1, 2, 1);
bar([sum(gas, 2); sum(liquid)]);
set(gca(), 'XTickLabel', {'gas 1', 'gas 2', 'gas 3', 'liquid'});
ylabel('moles for each mole of feed');
title('Where the feed goes');
subplot(1, 2, 2);
semilogx(middle / 1e5, kept, 'b-', middle(best) / 1e5, most, 'ko', ...
         middle([1, end]) / 1e5, once * weights * [1, 1], 'r--');
xlabel('pressure of the middle drum / bar');
ylabel('liquid / g for each mole of feed');
ylim([once * weights - 1, most + 2]); % room for the legend
legend({'three steps', 'most', 'one step'}, 'Location', 'northwest');
title('What stays liquid');
