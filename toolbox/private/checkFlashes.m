function tally = checkFlashes(s, tally)
%checkFlashes  The flashes at temperature and pressure of the sample: solved, balanced, met, and equilibria.
%
%   Balances hold to 1e-9, which is the rounding of sums with what an iteration leaves of them; logarithms of fugacities
%   agree to 1e-6, to which a flash in double precision converges without effort.
solved = cellfun(@isempty, {s.flashes.problem});
tally.asked = tally.asked + numel(solved);
if any(~solved)
    words = {s.flashes(~solved).problem};
    for text = unique(words)
        same = s.flashes(~solved);
        same = same(strcmp(words, text{1}));
        severity = 'note'; % what a model does not cover
        if ~any(solved)
            severity = 'failure';
        end
        tally = checkFound(tally, severity, ['Flashes at temperature and pressure fail: ', text{1}], ...
            stateText(flashStates(s, same), 1), flashLines(s, same(1)), [same.T], [same.P], numel(solved));
    end
end
[tally, flashes] = checkShapes(s, tally, s.flashes(solved), @(flash) flashLines(s, flash));
if isempty(flashes)
    return
end
at = flashStates(s, flashes);
tests = {
    'The temperature of the result is not the specified one', @(f) abs(f.Tr / f.T - 1), 'abs(Tr / T - 1)', 1e-9
    'The pressure of the result is not the specified one', @(f) abs(f.Pr / f.P - 1), 'abs(Pr / P - 1)', 1e-9
    'Phase fractions do not add up to 1', @(f) abs(sum(f.fractions) - 1), 'abs(sum(fractions) - 1)', 1e-9
    'A phase fraction is not between 0 and 1', @(f) max([-f.fractions(:); f.fractions(:) - 1; 0]), ...
        'max([-fractions(:); fractions(:) - 1; 0])', 1e-9
    'The fractions of a phase do not add up to 1', @(f) max(abs(sum(f.X, 2) - 1)), 'max(abs(sum(Y, 2) - 1))', 1e-9
    'A fraction in a phase is negative', @(f) max(-[f.X(:); 0]), 'max(-[Y(:); 0])', 1e-12
    'The material balance is not met', @(f) max(abs(f.fractions(:).' * f.X - f.Z)), ...
        'max(abs(fractions(:).'' * Y - X))', 1e-9
    };
for k = 1:size(tests, 1)
    deviation = arrayfun(tests{k, 2}, flashes).';
    lines = @(row) [flashLines(s, flashes(row))
                    {sprintf('deviation = %s', tests{k, 3}); sprintf('limit = %g', tests{k, 4})}];
    tally = checkCompared(tally, 'failure', tests{k, 1}, deviation, tests{k, 4}, at, lines);
end
tally = checkDistinct(s, tally, flashes, @(flash) flashLines(s, flash));
tally = checkFugacities(s, tally, flashes, @(flash) flashLines(s, flash));
end
