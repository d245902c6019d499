function [bubbles, others, reasons] = threePhaseLines(model, z, edges, Pmin, Pmax)
%threePhaseLines  Where a third phase appears in a mixture of two.
%
%   [bubbles, others, reasons] = threePhaseLines(model, z, edges, Pmin, Pmax)
%
%   They begin at EDGES, in each row two points (see stableCurve) that share temperature and pressure, or, if there are
%   none, where two liquids boil at PMIN by the package's flashes. BUBBLES are the lines on which the third phase is a
%   vapor, OTHERS those on which it is a liquid; both as in curveOf, those of BUBBLES with falling pressure. REASONS are
%   sentences on open ends.
system = threePhaseSystem(model, z, [10, Pmin; 5000, Pmax]);
traces = struct('start', {}, 'points', {}, 'why', {}, 'failures', {});
for start = startsAt(system, numel(z), edges)
    if ~isAmong(start, [traces.start]) && ~isAmong(start, closedEnds(traces))
        trace = traceFrom(model, system, z, start, Pmin);
        again = arrayfun(@(other) ~isempty(other.why) && isAmong(other.start, closedEnds(trace)), traces);
        traces(again) = []; % it is all of what was cut short from the other end
        traces(end + 1) = trace; %#ok<AGROW>
    end
end
if isempty(edges)
    for P = Pmin * [1, 3, 10, 30]
        start = boilingLiquids(system, model, z, P);
        if ~isempty(start)
            traces = inBothDirections(model, system, z, start, Pmin);
            break
        end
    end
end
reasons = {traces.why};
reasons = [reasons(~cellfun(@isempty, reasons)), traces.failures];
[bubbles, others] = partedByPhase({traces.points});
end

% At an edge either of the two phases may be there and the other appear. A vapor that appears comes first.
function starts = startsAt(system, n, edges)
starts = [];
for k = 1:size(edges, 1)
    for turned = [1, 2]
        second = edges{k, turned};
        new = edges{k, 3 - turned};
        v = [second.v(1:n), new.v(1:n), 0, second.v(n + 1:n + 2)];
        point = solvePoint(system, v, 2 * n + 1, [second.phases(1), new.phases(2), second.phases(2)], 20);
        if ~isempty(point)
            point.tangent = point.tangent * sign(point.tangent(2 * n + 1));
            starts = [starts, point]; %#ok<AGROW>
        end
    end
end
if ~isempty(starts)
    densities = vertcat(starts.densities);
    [~, order] = sort(densities(:, 2));
    starts = starts(order);
end
end

% Three phases of two compounds have no amounts: there temperature and pressure tell, and which way a line goes.
function yes = isAmong(point, points)
yes = false;
for other = points
    off = abs(other.v - point.v);
    if numel(off) == 7
        off = [off(6:7), other.tangent(6) * point.tangent(6) < 0];
    end
    yes = yes || max(off) < 1e-6;
end
end

% Where whole lines end at an edge, as points of startsAt.
function ends = closedEnds(traces)
ends = struct('v', {}, 'tangent', {});
for trace = traces(cellfun(@isempty, {traces.why}))
    v = trace.points(end).v;
    n = (numel(v) - 3) / 2;
    if v(2 * n + 1) == 1 % the second phase is all, and the first one the trace
        v = [-v(1:n), v(n + 1:2 * n) - v(1:n), 0, v(2 * n + 2:end)];
    end
    ends(end + 1) = struct('v', v, 'tangent', -trace.points(end).tangent); %#ok<AGROW>
end
end

function trace = traceFrom(model, system, z, start, Pmin)
[points, why, failures] = threePhaseTrace(model, system, z, start, Pmin);
trace = struct('start', start, 'points', points, 'why', why, 'failures', {failures});
end

function traces = inBothDirections(model, system, z, start, Pmin)
traces = traceFrom(model, system, z, start, Pmin);
if start.v(end) > log(Pmin)
    start.tangent = -start.tangent;
    traces(2) = traceFrom(model, system, z, start, Pmin);
    down = traces(2).points;
    for k = 1:numel(down)
        down(k).tangent = -down(k).tangent;
    end
    traces(1).points = [down(end:-1:2), traces(1).points];
    traces(2).points = down([]);
end
end

% Bubble points, and where another liquid appears. A line may change from one to the other.
function [bubbles, others] = partedByPhase(lines)
bubbles = curveOf([], []);
others = bubbles;
for points = lines(~cellfun(@isempty, lines))
    densities = vertcat(points{1}.densities);
    lighter = densities(:, 2) < min(densities(:, [1, 3]), [], 2);
    change = [0; find(diff(lighter)); numel(lighter)];
    for part = 1:numel(change) - 1
        rows = change(part) + 1:change(part + 1);
        boils = lighter(rows(1));
        if ~boils % across the critical point to the nearest bubble points, so that there is no gap
            rows = max(rows(1) - 1, 1):min(rows(end) + 1, numel(lighter));
        end
        if numel(rows) == 1
            continue % one point is no line
        end
        line = curveOf(points{1}(rows), NaN(numel(rows), 1));
        if boils
            line.vaporFraction(:) = 0;
            if line.P(end) > line.P(1)
                line = turnedCurve(line);
            end
            bubbles(end + 1) = line; %#ok<AGROW>
        else
            others(end + 1) = line; %#ok<AGROW>
        end
    end
end
end

% The state in which two liquids begin to boil, from flashes just below and above; empty if there is none.
function point = boilingLiquids(system, model, z, P)
point = [];
n = numel(z);
X = ofAllCompounds(model, z);
T = linspace(20, 700, 137).';
fraction = capeOpenMultiFlash(model.handle, X, 'Temperature', T, 'Pressure', P, 'Unspecified', 'vaporFraction');
first = find(fraction(2:end) > 0 & fraction(1:end - 1) == 0, 1, 'last');
if isempty(first)
    return
end
below = T(first);
above = T(first + 1);
try
    while above - below > 1e-3
        middle = (below + above) / 2;
        labels = capeOpenFlash(model.handle, X, 'Temperature', middle, 'Pressure', P, 'Unspecified');
        if any(strcmpi(labels, model.labels{1}))
            above = middle;
        else
            below = middle;
        end
    end
    [~, parts, liquids] = capeOpenFlash(model.handle, X, 'Temperature', below, 'Pressure', P, 'Unspecified');
    [labels, ~, phases] = capeOpenFlash(model.handle, X, 'Temperature', above, 'Pressure', P, 'Unspecified');
catch failure
    rethrowOthers(failure);
    return
end
vapor = phases(strcmpi(labels, model.labels{1}), :);
if size(liquids, 1) ~= 2 || isempty(vapor)
    return
end
fractions = log(max([liquids(:, model.compounds); vapor(1, model.compounds)], 1e-300));
distance = sum(abs(fractions(1:2, :) - [1; 1] * fractions(3, :)), 2);
first = 1 + (distance(2) < distance(1));
v = [fractions(3 - first, :) - fractions(first, :), fractions(3, :) - fractions(first, :), parts(3 - first), ...
     log(above), log(P)];
point = solvePoint(system, v, 2 * n + 3, [2, 1, 2], 30);
if ~isempty(point)
    point.tangent = point.tangent * sign(point.tangent(end));
end
end
