function tally = checkFugacities(s, tally, flashes, linesOf)
%checkFugacities  Each compound has the same fugacity in all phases of a flash, to 1e-6 of it.
%
%   A flash in double precision converges to this without effort. LINESOF(flash) does the flash again, whose results
%   are then phases, fractions, Y, T and P.
flashes = flashes(cellfun(@numel, {flashes.phases}) > 1);
if ~any(strcmpi(s.single, 'logFugacityCoefficient')) || isempty(flashes)
    return
end
deviation = NaN(numel(flashes), 1);
for k = 1:numel(flashes)
    flash = flashes(k);
    f = zeros(numel(flash.phases), s.n);
    for phase = 1:numel(flash.phases)
        x = flash.X(phase, :);
        value = phaseValues(s, 'logFugacityCoefficient', flash.T, flash.P, x, flash.phases{phase});
        f(phase, :) = log(x) + [value, NaN(1, s.n - numel(value))];
    end
    there = min(flash.X, [], 1) > 1e-12; % of less, the number itself is not known to this
    deviation(k) = max([0, max(f(:, there), [], 1) - min(f(:, there), [], 1)]);
end
lines = @(row) [linesOf(flashes(row))
                {'f = zeros(size(Y));'
                 'ask = @(x, phase) capeOpenSinglePhaseProp(handle, ''logFugacityCoefficient'', T, P, x, phase);'
                 'for k = 1:numel(phases), f(k, :) = log(Y(k, :)) + ask(Y(k, :), phases{k}); end'
                 'f = f(:, min(Y, [], 1) > 1e-12);'
                 'deviation = max(max(f, [], 1) - min(f, [], 1))'; 'limit = 1e-6'}];
tally = checkCompared(tally, 'failure', 'Fugacities differ between the phases of a flash', deviation, 1e-6, ...
                      flashStates(s, flashes), lines);
end
