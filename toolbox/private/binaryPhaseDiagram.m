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
isotherm = strcmp(quantity, 'Temperature');
problem = problemOf(handle, pair, isotherm, value);
% The fraction of one compound is followed, which has digits for next to nothing and none for next to all.
followed = 1 + (ratioAtTrace(problem, 2) > max(ratioAtTrace(problem, 1), 16));
if followed == 2
    problem = problemOf(handle, fliplr(pair), isotherm, value);
end
[vapors, liquids, reasons] = binaryLines(problem);
if isempty(vapors)
    error('Verdanth:error', 'No equilibrium of vapor and liquid found for the two compounds');
end
weights = [1, 1];
if mass
    weights = capeOpenConstant(handle, 'molecularWeight');
    weights = weights(pair);
end
vapors = inFractions(vapors, problem.system, weights, followed);
liquids = inFractions(liquids, problem.system, weights, followed);
for k = 1:2
    reasons = strrep(reasons, sprintf('COMPOUND%d', k), names{1 + (k ~= followed)});
end
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

% What binaryLines asks for.
function problem = problemOf(handle, pair, isotherm, value)
problem = struct('model', equilibriumModel(handle, pair), 'constants', criticalConstants(handle, pair), ...
                 'isotherm', isotherm);
bounds = [10, 5000];
boils = value < problem.constants.P;
if isotherm
    bounds = [1e-3, 2e8];
    boils = value < problem.constants.T;
end
problem.system = binarySystem(problem.model, isotherm, value, bounds);
problem.boils = boils;
problem.starts = cell(1, 2);
for compound = find(boils)
    start = pureStart(problem.constants, isotherm, value, compound);
    problem.starts{compound} = solvePoint(problem.system, start, 4, [2, 1], 80);
end
end

% The logarithm of the ratio of fractions in vapor and liquid of a compound that the boiling other one has a trace of.
function ratio = ratioAtTrace(problem, compound)
ratio = -Inf;
if ~isempty(problem.starts{3 - compound})
    ratio = problem.starts{3 - compound}.v(compound);
end
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

% FOLLOWED is the place of the system's first compound among those asked for.
function branches = inFractions(branches, system, weights, followed)
smooth = cell(1, 3);
for k = 1:numel(branches)
    V = branches(k).points;
    if (V(1, 4) > V(end, 4)) ~= (followed == 2)
        V = flipud(V);
        branches(k).points = V;
        branches(k).slopes = -flipud(branches(k).slopes);
    end
    [branches(k).x, branches(k).level, branches(k).y] = fractionsOf(system, V, weights, followed);
    [smooth{1:3}] = fractionsOf(system, smoothCurve(branches(k), 8), weights, followed);
    branches(k).smooth = smooth;
end
if ~isempty(branches)
    [~, order] = sort(arrayfun(@(branch) branch.x(1), branches));
    branches = branches(order);
end
end
