function [lines, reasons, threePhases] = envelopeLines(handle, Z, Pmin)
%envelopeLines  The boundary of a mixture in temperature and pressure, branch by branch.
%
%   [lines, reasons, threePhases] = envelopeLines(handle, Z, Pmin)
%
%   Z has the fractions of all compounds of the package in the basis of the moment. LINES are curves of curveOf in the
%   order along the boundary from the dew point at Pmin, with vaporFraction 1 at dew points, 0 at bubble points and NaN
%   where a second liquid appears; critical holds a critical point that is passed. REASONS are sentences on what is not
%   complete, THREEPHASES the lines inside on which a third phase appears, other than bubble points of two liquids.
[Z, restore] = molesOf(handle, Z); %#ok<ASGLU>
Pmax = 2e8; % Pa; with some compounds lines go on to any pressure
present = find(Z > 0);
z = Z(present);
n = numel(z);
model = equilibriumModel(handle, present);
constants = criticalConstants(handle, present);
system = envelopeSystem(model, z, [10, Pmin; 5000, Pmax]);
reasons = {};
[lines, ended, edges] = follow(-1);
threePhases = curveOf([], []);
below = threePhases;
closed = ~isempty(lines) && ended == n + 2 && lines(end).P(end) < Pmin * (1 + 1e-6);
if ~closed
    explain(lines, ended);
    [below, ended, more] = follow(1);
    edges = [edges; more];
    comesRound = ended == n + 2 && below(end).P(end) < Pmin * (1 + 1e-6) && below(end).vaporFraction(end) == 1;
    if comesRound % all of it, from the other side
        lines = curveOf([], []);
        reasons = {};
    elseif ~isempty(below)
        explain(below, ended);
    end
    below = withoutDewPoints(arrayfun(@turnedCurve, below(end:-1:1)), isempty(lines));
end
if ~closed || ~isempty(edges)
    [bubbles, threePhases, open] = threePhaseLines(model, z, edges, Pmin, Pmax);
    if ended == -3 && ~isempty(below) && any(arrayfun(@(line) line.P(end) < max(vertcat(below.P)), bubbles))
        below = curveOf([], []); % a flash has missed the second liquid there
        reasons(end) = [];
    end
    reasons = [reasons, open];
    lines = [lines, below, bubbles];
end
if isempty(lines)
    return
end
[lines, liquids] = partedByKind(lines);
if ~any(arrayfun(@(line) line.vaporFraction(end) == 0 && line.P(end) < Pmin * (1 + 1e-6), lines))
    reasons{end + 1} = sprintf('no bubble points come down to %g bar', Pmin / 1e5);
end
lines = [lines, liquids];
[whole.T, whole.P, whole.vaporFraction] = lineColumns(lines, 'T', 'P', 'vaporFraction');
[unlike, failing] = unlikeTheFlash(handle, Z, whole);
reasons = [reasons, failuresAt('the package''s flash finds other phases', 'points', whole, unlike), ...
           failuresAt('the package''s flash of the mixture fails', 'points', whole, failing)];

    function [lines, ended, edges] = follow(side)
        lines = curveOf([], []);
        ended = -2;
        edges = cell(0, 2);
        start = envelopeStart(system, model, z, constants, Pmin, side);
        if isempty(start)
            return
        end
        [pieces, ended, edges, summits] = stableCurve(system, model, z, start);
        points = [pieces{:}];
        if ~isempty(points)
            failing = find(isnan([points.stable]));
            reasons = [reasons, failuresAt('the package''s flash fails', 'points', curveOf(points, NaN), failing)];
        end
        for k = 1:numel(pieces)
            lines(k) = curveOf(pieces{k}, vertcat(pieces{k}.vaporFraction));
            lines(k).critical = exp(summits(k, n + 1:n + 2));
        end
    end

    function explain(lines, ended)
        if ~isempty(lines)
            reasons{end + 1} = reasonOfEnd(model, z, lines(end), ended, 'second liquid');
        end
    end
end

% Dew points that were found from the other side are not wanted a second time.
function lines = withoutDewPoints(lines, wanted)
for k = 1:numel(lines)
    for field = {'T', 'P', 'points', 'slopes', 'vaporFraction'}
        again = lines(k).vaporFraction == 1;
        lines(k).(field{1})(again & ~wanted, :) = [];
    end
end
lines = lines(arrayfun(@(line) ~isempty(line.T), lines));
end

% Lines of dew and bubble points, those that come down furthest last, and those on which a second liquid appears.
function [lines, liquids] = partedByKind(all)
lines = curveOf([], []);
liquids = lines;
for line = all
    kind = isnan(line.vaporFraction);
    ends = [0; find(diff(kind)); numel(kind)];
    for k = 1:numel(ends) - 1
        part = line;
        first = ends(k) + (k == 1); % the point before, so that there is no gap
        for field = {'T', 'P', 'vaporFraction', 'points', 'slopes'}
            part.(field{1}) = line.(field{1})(first:ends(k + 1), :);
        end
        if k > 1
            part.vaporFraction(1) = part.vaporFraction(2);
            part.critical(:) = NaN;
        end
        if kind(ends(k) + 1)
            liquids(end + 1) = part; %#ok<AGROW>
        else
            lines(end + 1) = part; %#ok<AGROW>
        end
    end
end
dew = arrayfun(@(line) any(line.vaporFraction == 1), lines);
bubbles = lines(~dew);
[~, order] = sort(arrayfun(@(line) -line.P(end), bubbles));
lines = [lines(dew), bubbles(order)];
end
