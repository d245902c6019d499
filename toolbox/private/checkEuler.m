function tally = checkEuler(s, tally)
%checkEuler  What holds of derivatives by moles: Euler's theorem, Gibbs-Duhem, symmetry, partial molar quantities.
%
%   To rounding, as in checkIdentities: 1e-9 of the sum of the terms.
lists = lower(s.single);
n = 'logFugacityCoefficient.Dmoles';
for at = s.states
    some = evenly(numel(at.T), 40 - 34 * s.quick);
    rows = statesOf(s, at.phase, at.T(some), at.P(some), at.X(some, :));
    if any(strcmp(lists, lower(n))) && ~isempty(some)
        tests = {'Euler: the sum over j of x_j * dlnPhi_i/dn_j is not zero', 'D * X.''', 'abs(D) * X.'' + 1e-3'
                 'Gibbs-Duhem: the sum over i of x_i * dlnPhi_i/dn_j is not zero', 'X * D', 'X * abs(D) + 1e-3'
                 'dlnPhi_i/dn_j is not dlnPhi_j/dn_i', 'D - D.''', 'abs(D) + abs(D.'') + 1e-3'};
        for k = 1:size(tests, 1)
            tally = matrices(s, tally, rows, n, tests(k, :));
        end
    end
    for base = {'volume', 'enthalpy', 'entropy', 'gibbsEnergy', 'helmholtzEnergy', 'internalEnergy', 'heatCapacityCp'}
        if all(ismember({lower(base{1}), [lower(base{1}), '.dmoles']}, lists)) && ~isempty(some)
            tally = partial(s, tally, rows, base{1});
        end
    end
    if all(ismember({'volume.dmoles', 'logfugacitycoefficient.dpressure'}, lists)) && ~isempty(some)
        tally = volumes(s, tally, rows);
    end
end
if any(strcmpi(s.single, 'diffusionCoefficient'))
    for at = s.states
        some = evenly(numel(at.T), 4);
        rows = statesOf(s, at.phase, at.T(some), at.P(some), at.X(some, :));
        test = {'diffusionCoefficient of i in j is not that of j in i', 'D - D.''', 'abs(D) + abs(D.'')'};
        tally = matrices(s, tally, rows, 'diffusionCoefficient', test);
    end
end
end

function tally = matrices(s, tally, at, name, test)
[deviation, limit] = deal(NaN(numel(at.T), 1));
for row = 1:numel(at.T)
    D = phaseValues(s, name, at.T(row), at.P(row), at.X(row, :), at.phase);
    if isempty(D) || any(~isfinite(D(:))) || size(D, 1) ~= size(D, 2)
        continue
    end
    value = evaluated(test{2}, {'D'}, {D}, [], [], at.X(row, :), s.R);
    terms = 1e-9 * evaluated(test{3}, {'D'}, {D}, [], [], at.X(row, :), s.R);
    terms = terms + 1e-300; % both may be zero
    [~, worst] = max(abs(value(:)) ./ terms(:));
    [deviation(row), limit(row)] = deal(abs(value(worst)), terms(worst));
end
lines = @(row) [stateLines(s, at.T(row), at.P(row), at.X(row, :))
                {sprintf('D = capeOpenSinglePhaseProp(handle, ''%s'', T, P, X, ''%s'');', name, at.phase)
                 sprintf('deviation = abs(%s)', test{2}); sprintf('limit = 1e-9 * (%s)', test{3})}];
tally = checkCompared(tally, 'failure', [at.phase, ': ', test{1}], deviation, limit, at, lines);
end

function tally = partial(s, tally, at, name)
values = phaseValues(s, name, at.T, at.P, at.X, at.phase);
parts = phaseValues(s, [name, '.Dmoles'], at.T, at.P, at.X, at.phase);
if isempty(values) || ~isequal(size(parts), size(at.X))
    return
end
terms = at.X .* parts;
terms(at.X == 0) = 0;
deviation = sum(terms, 2) - values;
lines = @(row) [stateLines(s, at.T(row), at.P(row), at.X(row, :))
                {sprintf('[f, parts] = capeOpenSinglePhaseProp(handle, {''%s'', ''%s.Dmoles''}, T, P, X, ''%s'');', ...
                         name, name, at.phase); 'terms = X(X > 0) .* parts(X > 0);'
                 'deviation = abs(sum(terms) - f)'; 'limit = 1e-9 * (abs(f) + sum(abs(terms)))'}];
what = sprintf('%s: %s is not the sum of its partial molar quantities', at.phase, name);
tally = checkCompared(tally, 'failure', what, deviation, 1e-9 * (abs(values) + sum(abs(terms), 2)), at, lines);
end

function tally = volumes(s, tally, at)
rate = phaseValues(s, 'logFugacityCoefficient.Dpressure', at.T, at.P, at.X, at.phase);
parts = phaseValues(s, 'volume.Dmoles', at.T, at.P, at.X, at.phase);
if ~isequal(size(parts), size(at.X)) || ~isequal(size(rate), size(at.X))
    return
end
P = repmat(at.P, 1, s.n);
RT = s.R * repmat(at.T, 1, s.n);
deviation = rate - parts ./ RT + 1 ./ P;
limit = 1e-9 * (abs(rate) + abs(parts) ./ RT + 1 ./ P);
lines = @(row) [stateLines(s, at.T(row), at.P(row), at.X(row, :))
                {sprintf('R = %.17g;', s.R)
                 sprintf('names = {''logFugacityCoefficient.Dpressure'', ''volume.Dmoles''};')
                 sprintf('[rate, parts] = capeOpenSinglePhaseProp(handle, names, T, P, X, ''%s'');', at.phase)
                 'deviation = abs(rate - parts / (R * T) + 1 / P)'
                 'limit = 1e-9 * (abs(rate) + abs(parts) / (R * T) + 1 / P)'}];
what = [at.phase, ': dlnPhi_i/dP is not v_i / (R * T) - 1 / P with the partial molar volume'];
tally = checkCompared(tally, 'failure', what, deviation, limit, at, lines);
end
