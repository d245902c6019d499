function [vapors, liquids, reasons] = binaryLines(problem)
%binaryLines  The lines of two compounds under one held condition, from one pure compound to the other.
%
%   [vapors, liquids, reasons] = binaryLines(problem)
%
%   PROBLEM has the fields model, constants and system of binarySystem, isotherm, whether the temperature is held,
%   boils, which of the compounds boil alone, and starts, the points where they do, as of solvePoint, or empty. VAPORS
%   and LIQUIDS are those of binaryChain; REASONS are sentences on what is not complete, in which the compounds are
%   COMPOUND1 and COMPOUND2.
vapors = struct('points', {}, 'slopes', {});
liquids = vapors;
ended = {};
reached = [false, false];
for first = [2, 1]
    start = problem.starts{first};
    if ~isempty(start) && ~reached(first)
        start.tangent = start.tangent * sign(start.tangent(4)) * (2 * first - 3);
        [more, both, place, why] = binaryChain(problem.model, problem.system, problem.isotherm, start);
        reached(first) = ~isempty(more);
        reached(3 - first) = reached(3 - first) || place == first - 1;
        vapors = [vapors, more]; %#ok<AGROW>
        liquids = [liquids, both]; %#ok<AGROW>
        ended{end + 1} = why; %#ok<AGROW>
    end
end
for first = find(problem.boils & ~reached)
    ended{end + 1} = sprintf('no line was found that begins with COMPOUND%d', first); %#ok<AGROW>
end
if isempty(vapors)
    start = startInside(problem);
    halves = cell(1, 2);
    for side = find([1, 1] * ~isempty(start))
        start.tangent = (2 * side - 3) * start.tangent * sign(start.tangent(4));
        [halves{side}, both, ~, ended{end + 1}] = binaryChain(problem.model, problem.system, problem.isotherm, start);
        liquids = [liquids, both]; %#ok<AGROW>
    end
    if all(~cellfun(@isempty, halves))
        halves{2}(1).points = [flipud(halves{1}(1).points(2:end, :)); halves{2}(1).points];
        halves{2}(1).slopes = [-flipud(halves{1}(1).slopes(2:end, :)); halves{2}(1).slopes];
        vapors = [halves{1}(2:end), halves{2}];
    end
end
reasons = ended(~cellfun(@isempty, ended));
end

% Where the package's flash finds a vapor and a liquid; empty if it does nowhere.
function start = startInside(problem)
model = problem.model;
system = problem.system;
start = [];
levels = linspace(0.5 * min(problem.constants.T), max(problem.constants.T), 40).';
if problem.isotherm
    levels = exp(linspace(log(1e4), log(5e7), 40)).';
end
for part = [0.5, 0.25, 0.75, 0.9, 0.1]
    X = ofAllCompounds(model, repmat([part, 1 - part], numel(levels), 1));
    [T, P] = system.conditions([zeros(numel(levels), 2), log(levels)]);
    fraction = capeOpenMultiFlash(model.handle, X, 'Temperature', T, 'Pressure', P, 'Unspecified', 'vaporFraction');
    inside = find(fraction > 0 & fraction < 1);
    if isempty(inside)
        continue
    end
    k = inside(ceil(end / 2));
    [labels, ~, phases] = capeOpenFlash(model.handle, X(k, :), 'Temperature', T(k), 'Pressure', P(k), 'Unspecified');
    vapor = phases(strcmpi(labels, model.labels{1}), model.compounds);
    liquid = phases(find(~strcmpi(labels, model.labels{1}), 1), model.compounds);
    if ~isempty(vapor) && ~isempty(liquid)
        start = solvePoint(system, [log(vapor ./ liquid), log(levels(k)), liquid(1)], 4, [2, 1], 20);
        return
    end
end
end
