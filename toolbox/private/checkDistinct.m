function tally = checkDistinct(s, tally, flashes, linesOf)
%checkDistinct  The phases of a flash are not the same: fractions or densities differ by a millionth at least.
%
%   The same twice is what an iteration for two phases may end with; its fugacities are equal. LINESOF(flash) does the
%   flash again, whose results are then phases, Y, T and P.
flashes = flashes(cellfun(@numel, {flashes.phases}) > 1);
if ~any(strcmpi(s.single, 'density')) || isempty(flashes)
    return
end
difference = Inf(numel(flashes), 1);
for k = 1:numel(flashes)
    flash = flashes(k);
    logs = zeros(numel(flash.phases), 1);
    for phase = 1:numel(flash.phases)
        density = phaseValues(s, 'density', flash.T, flash.P, flash.X(phase, :), flash.phases{phase});
        logs(phase) = log([density, NaN(1, isempty(density))]);
    end
    for one = 2:numel(flash.phases)
        apart = [bsxfun(@minus, flash.X(1:one - 1, :), flash.X(one, :)), logs(1:one - 1) - logs(one)];
        difference(k) = min([difference(k); max(abs(apart), [], 2)]);
    end
end
limit = zeros(size(difference));
limit(isnan(difference)) = NaN;
lines = @(row) [linesOf(flashes(row))
                {'d = zeros(numel(phases), 1); difference = Inf;'
                 'ask = @(x, phase) capeOpenSinglePhaseProp(handle, ''density'', T, P, x, phase);'
                 'for k = 1:numel(phases), d(k) = log(ask(Y(k, :), phases{k})); end'
                 'for k = 2:numel(phases), for l = 1:k - 1'
                 'difference = min(difference, max(abs([Y(k, :) - Y(l, :), d(k) - d(l)])))'; 'end, end'
                 'deviation = double(difference < 1e-6)'; 'limit = 0'}];
tally = checkCompared(tally, 'failure', 'Two phases of a flash are the same', double(difference < 1e-6), limit, ...
                      flashStates(s, flashes), lines);
end
