function series = compareAsked(s, series, index, phases, own)
%compareAsked  The values that a package gives at the states of series: [] for what it does not list or have.
%
%   INDEX has the number that each compound of the series has in the package, PHASES the phases of the series and OWN
%   the package's labels of these, '' for none.
lists = struct('constant', {s.constants}, 'TDependent', {s.T}, 'PDependent', {s.P}, 'phase', {s.single});
ending = onCleanup(@() progressLine('')); %#ok<NASGU>
flashes = [];
for k = 1:numel(series)
    this = series(k);
    if strcmp(this.kind, 'flash')
        if isempty(flashes)
            flashes = flashesAt(s, this, index);
        end
        values = ofFlashes(flashes, this, index, phases, own);
    elseif ~any(strcmpi(this.property, lists.(this.kind)))
        values = [];
    elseif strcmp(this.kind, 'phase')
        progressLine(this.property);
        values = ofPhase(s, this, index, own{strcmp(phases, this.phase)});
    elseif strcmp(this.kind, 'constant')
        values = constantValues(s.handle, this.property, s.n);
        values = values(index);
    else
        values = ofPure(s, this, index);
    end
    series(k).values = values;
end
end

function values = ofPure(s, series, index)
at = [series.T; series.P]; % one of them is empty
values = NaN(size(at));
for row = 1:size(at, 1)
    own = NaN(1, s.n);
    own(index) = at(row, :);
    own = pureValues(s, series.property, own, series.kind);
    values(row, :) = own(index);
end
end

% Properties of pairs of compounds are asked for one state after the other, and at a few alone.
function values = ofPhase(s, series, index, phase)
values = [];
if isempty(phase)
    return
end
count = numel(series.T);
X = zeros(count, s.n);
X(:, index) = series.X;
ask = @(row) reshape(phaseValues(s, series.property, series.T(row), series.P(row), X(row, :), phase), numel(row), []);
values = ask(1:count);
if isempty(values)
    values = NaN(count, 1);
    for row = evenly(count, 3)
        some = ask(row);
        values(:, end + 1:numel(some)) = NaN;
        values(row, 1:numel(some)) = some;
    end
end
n = s.n;
if size(values, 2) == n && n > 1
    values = values(:, index);
elseif size(values, 2) == n * n && n > 1
    [first, second] = ndgrid(index, index);
    values = values(:, sub2ind([n, n], first(:), second(:)));
end
end

function flashes = flashesAt(s, series, index)
if isfield(s, 'flashes')
    flashes = s.flashes;
    return
end
progressLine('flashes');
for k = numel(series.T):-1:1
    Z = zeros(1, s.n);
    Z(index) = series.X(k, :);
    flashes(k) = sampledFlash(s, Z, series.T(k), series.P(k));
end
end

function values = ofFlashes(flashes, series, index, phases, own)
count = numel(flashes);
if strcmp(series.property, 'phases')
    values = arrayfun(@(flash) phasesText(flash, phases, own), flashes(:), 'UniformOutput', false);
    return
end
fraction = strcmp(series.property, 'fraction');
values = NaN(count, numel(index));
if fraction
    values = zeros(count, 1);
end
label = own{strcmp(phases, series.phase)};
for k = 1:count
    row = find(strcmpi(flashes(k).phases(:), label));
    if ~isempty(flashes(k).problem)
        values(k, :) = NaN;
    elseif numel(row) == 1 && fraction
        values(k) = flashes(k).fractions(row);
    elseif numel(row) == 1
        values(k, :) = flashes(k).X(row, index);
    end
end
end

function text = phasesText(flash, phases, own)
text = 'fails';
if isempty(flash.problem)
    names = reshape(flash.phases, 1, []);
    for k = 1:numel(names)
        known = find(strcmpi(own, names{k}), 1);
        if ~isempty(known)
            names{k} = phases{known};
        end
    end
    text = strjoin(sort(names), ' and ');
end
end
