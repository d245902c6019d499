function [tally, flashes] = checkShapes(s, tally, flashes, linesOf)
%checkShapes  The results of flashes have a fraction and a composition for each phase, in numbers; gives those that do.
%
%   What does not can not be compared with anything. LINESOF(flash) does the flash again, whose results are then phases,
%   fractions and Y.
tests = {
    'A flash gives no phase', @(f) isempty(f.phases), 'isempty(phases)'
    'A flash gives a phase that is not listed', @(f) ~all(ismember(lower(f.phases), lower(s.phases))), ...
        '~all(ismember(lower(phases), lower(capeOpenPhaseList(handle))))'
    'A flash gives a phase twice', @(f) numel(unique(f.phases)) < numel(f.phases), ...
        'numel(unique(phases)) < numel(phases)'
    'A flash gives not one fraction for each phase', @(f) numel(f.fractions) ~= numel(f.phases), ...
        'numel(fractions) ~= numel(phases)'
    'A flash gives not one composition of all compounds for each phase', ...
        @(f) ~isequal(size(f.X), [numel(f.phases), s.n]), ...
        sprintf('~isequal(size(Y), [numel(phases), %d])', s.n)
    'A phase fraction is no number', @(f) ~isnumeric(f.fractions) || ~all(isfinite(f.fractions(:))), ...
        '~all(isfinite(fractions(:)))'
    'A phase is there without a composition in numbers', @(f) ~isnumeric(f.X) || ~all(isfinite(f.X(:))), ...
        '~all(isfinite(Y(:)))'
    'A flash gives no temperature or pressure', @(f) ~isequal(isfinite([f.Tr, f.Pr]), [true, true]), ...
        '~all(isfinite([Tr, Pr]))'
    };
for k = 1:size(tests, 1)
    if isempty(flashes)
        return
    end
    bad = arrayfun(tests{k, 2}, flashes);
    lines = @(row) [linesOf(flashes(row)); {sprintf('deviation = %s', tests{k, 3}); 'limit = 0'}];
    tally = checkCompared(tally, 'failure', tests{k, 1}, double(bad(:)), 0, flashStates(s, flashes), lines);
    flashes = flashes(~bad);
end
end
