function [vapors, liquids, reasons, names] = binaryPhaseDiagram(handle, compounds, quantity, value)
%binaryPhaseDiagram  Phases of two compounds under one held condition.
%
%   [vapors, liquids, reasons, names] = binaryPhaseDiagram(handle, compounds, quantity, value)
%
%   QUANTITY is the one that is held at VALUE, 'Temperature' or 'Pressure'. VAPORS are branches of boiling liquid and
%   its vapor with rising fraction of the first compound in the liquid, LIQUIDS those of two liquids; fields are x and
%   y, the fractions of compound 1 in first and second phase, level, the pressures or temperatures, smooth, a cell array
%   with more values of these three, and points and slopes as in curveOf. REASONS are sentences on what is not complete,
%   NAMES what the package calls the two. Fractions are in the basis of the moment.
[pair, names] = pairOf(handle, compounds);
value = checkedPositive(value, lower(quantity));
[restore, mass] = moleBasis(); %#ok<ASGLU>
quiet = withoutWarnings(); %#ok<NASGU>
model = equilibriumModel(handle, pair);
constants = criticalConstants(handle, pair);
isotherm = strcmp(quantity, 'Temperature');
bounds = [10, 5000];
boils = value < constants.P;
if isotherm
    bounds = [1e-3, 2e8];
    boils = value < constants.T;
end
system = binarySystem(model, isotherm, value, bounds);
vapors = struct('points', {}, 'slopes', {});
liquids = vapors;
ended = {};
reached = [false, false];
for first = [2, 1]
    if boils(first) && ~reached(first)
        start = solvePoint(system, pureStart(constants, isotherm, value, first), 4, [2, 1], 40);
        if ~isempty(start)
            start.tangent = start.tangent * sign(start.tangent(4)) * (2 * first - 3);
            [more, both, place, why] = binaryChain(model, system, isotherm, start);
            reached(first) = ~isempty(more);
            reached(3 - first) = reached(3 - first) || place == first - 1;
            vapors = [vapors, more]; %#ok<AGROW>
            liquids = [liquids, both]; %#ok<AGROW>
            ended{end + 1} = why; %#ok<AGROW>
        end
    end
end
for first = find(boils & ~reached)
    ended{end + 1} = ['no line was found that begins with ', names{first}]; %#ok<AGROW>
end
if isempty(vapors)
    start = startInside(model, system, isotherm, value, constants);
    halves = cell(1, 2);
    for side = find([1, 1] * ~isempty(start))
        start.tangent = (2 * side - 3) * start.tangent * sign(start.tangent(4));
        [halves{side}, both, ~, ended{end + 1}] = binaryChain(model, system, isotherm, start);
        liquids = [liquids, both]; %#ok<AGROW>
    end
    if all(~cellfun(@isempty, halves))
        halves{2}(1).points = [flipud(halves{1}(1).points(2:end, :)); halves{2}(1).points];
        halves{2}(1).slopes = [-flipud(halves{1}(1).slopes(2:end, :)); halves{2}(1).slopes];
        vapors = [halves{1}(2:end), halves{2}];
    end
end
if isempty(vapors)
    error('Verdanth:error', 'No equilibrium of vapor and liquid found for the two compounds');
end
reasons = ended(~cellfun(@isempty, ended));
weights = [1, 1];
if mass
    weights = capeOpenConstant(handle, 'molecularWeight');
    weights = weights(pair);
end
vapors = inFractions(vapors, system, weights);
liquids = inFractions(liquids, system, weights);
reasons = strrep(reasons, 'COMPOUND', names{1});
end

function [pair, names] = pairOf(handle, compounds)
names = capeOpenCompoundList(handle);
compounds = capeopen.internal.charsOf(compounds);
if ~iscellstr(compounds) || numel(compounds) ~= 2 %#ok<ISCLSTR>
    error('Verdanth:error', 'Expected a cell array with the names of two compounds');
end
pair = compoundIndex(handle, compounds);
if pair(1) == pair(2)
    error('Verdanth:error', 'The two compounds are the same');
end
names = names(pair);
end

% One compound boils, with a trace of the other.
function v = pureStart(constants, isotherm, value, compound)
c = struct('T', constants.T(compound), 'P', constants.P(compound), 'acentric', constants.acentric(compound));
if isotherm
    T = value;
    P = c.P * exp(5.373 * (1 + c.acentric) * (1 - c.T / T));
    level = P;
else
    P = value;
    T = c.T / (1 - log(P / c.P) / (5.373 * (1 + c.acentric)));
    level = T;
end
v = [wilson(constants, T, P), log(level), compound == 1];
end

% Where the package's flash finds a vapor and a liquid; empty if it does nowhere.
function start = startInside(model, system, isotherm, value, constants)
start = [];
levels = linspace(0.5 * min(constants.T), max(constants.T), 40).';
if isotherm
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

function branches = inFractions(branches, system, weights)
smooth = cell(1, 3);
for k = 1:numel(branches)
    V = branches(k).points;
    if V(1, 4) > V(end, 4)
        V = flipud(V);
        branches(k).points = V;
        branches(k).slopes = -flipud(branches(k).slopes);
    end
    [branches(k).x, branches(k).level, branches(k).y] = fractionsOf(system, V, weights);
    [smooth{1:3}] = fractionsOf(system, smoothCurve(branches(k), 8), weights);
    branches(k).smooth = smooth;
end
if ~isempty(branches)
    [~, order] = sort(arrayfun(@(branch) branch.x(1), branches));
    branches = branches(order);
end
end
