function saved = compareMeasured(handle, opening, options, among)
%compareMeasured  Values of a package over the sample of a check, with the states that another is to be asked at.
%
%   The compounds AMONG, numbers of them, are those that the sample has. SAVED.SERIES is a struct array with an element
%   for each property and phase: kind, property, phase, T and P (columns; for pure compounds a column for each), X
%   (rows), and values (a row for each state). What it takes to compare with another package later is all in SAVED.
s = checkSample(handle, opening, options, among);
outside = true(1, s.n);
outside(among) = false;
if any(any(s.Z(:, outside) > 0))
    error('Verdanth:error', 'Expected compositions of compounds that both packages have');
end
cas = casOf(handle);
saved = struct('madeBy', 'capeOpenCompare', 'package', capeOpenName(handle), 'compounds', {s.compounds(among)}, ...
               'cas', {cas(among)}, 'options', options, 'phases', {s.phases}, 'states', {cell(size(s.phases))}, ...
               'series', seriesOf(s, among));
for k = 1:numel(s.phases)
    saved.states{k} = capeOpenPhaseState(handle, s.phases{k});
end
saved.series = compareAsked(s, saved.series, among, s.phases, s.phases);
for k = 1:numel(saved.series)
    series = saved.series(k);
    if strcmp(series.kind, 'phase') && size(series.values, 2) > numel(among) % of pairs: at a few states
        rows = evenly(size(series.values, 1), 3);
        [series.T, series.P, series.X] = deal(series.T(rows), series.P(rows), series.X(rows, :));
        series.values = series.values(rows, :);
        saved.series(k) = series;
    end
end
end

function series = seriesOf(s, among)
series = struct('kind', {}, 'property', {}, 'phase', {}, 'T', {}, 'P', {}, 'X', {}, 'values', {});
T0 = s.T0(among);
for name = reshape(s.constants, 1, [])
    if ~strcmpi(name{1}, 'casRegistryNumber')
        series(end + 1) = one('constant', name{1}, '', [], [], []); %#ok<AGROW>
    end
end
for name = reshape(s.T, 1, [])
    series(end + 1) = one('TDependent', name{1}, '', [0.5; 0.7; 0.9; 1.2] * T0, [], []); %#ok<AGROW>
end
for name = reshape(s.P, 1, [])
    series(end + 1) = one('PDependent', name{1}, '', [], [1e4; 101325; 1e6] * ones(size(T0)), []); %#ok<AGROW>
end
for at = s.states
    rows = evenly(numel(at.T), max(8, floor(2000 / s.n)));
    for name = reshape(s.single, 1, [])
        if ~isempty(rows)
            series(end + 1) = one('phase', name{1}, at.phase, at.T(rows), at.P(rows), at.X(rows, among)); %#ok<AGROW>
        end
    end
end
T = vertcat(s.flashes.T);
P = vertcat(s.flashes.P);
Z = vertcat(s.flashes.Z);
series(end + 1) = one('flash', 'phases', '', T, P, Z(:, among));
for phase = reshape(s.phases, 1, [])
    series(end + 1) = one('flash', 'fraction', phase{1}, T, P, Z(:, among)); %#ok<AGROW>
    series(end + 1) = one('flash', 'composition', phase{1}, T, P, Z(:, among)); %#ok<AGROW>
end
end

function series = one(kind, property, phase, T, P, X)
series = struct('kind', kind, 'property', property, 'phase', phase, 'T', T, 'P', P, 'X', X, 'values', []);
end
