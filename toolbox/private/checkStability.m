function tally = checkStability(s, tally)
%checkStability  No other phase would lower the Gibbs energy of what a flash gives, by the package's own fugacities.
%
%   The distance of a trial phase W from the tangent plane of the Gibbs energy at the result, over R * T, is
%   sum(W .* (log(W) + lnPhi(W) - d)), where d is log(x) + lnPhi(x) in the phases of the result. It is negative nowhere
%   if the result is stable (Michelsen, Fluid Phase Equilibria 9 (1982) 1). Any W at which it is shows that it is not,
%   so that the search need not come to an end: successive substitution from vapor and liquid by Wilson's ratios, the
%   mean of the phases, and each compound nearly pure, in each kind of phase that the package has. What the logarithms
%   of fugacities of a result may be off, 1e-6, this sum may be, too.
some = wholeFlashes(s, s.flashes);
some = some(cellfun(@(Z) nnz(Z) > 1, {s.flashes(some).Z}));
if ~any(strcmpi(s.single, 'logFugacityCoefficient')) || isempty(some)
    return
end
flashes = s.flashes(some);
[planes, largest] = tangents(s, flashes);
known = all(isfinite(planes) | vertcat(flashes.Z) == 0, 2);
[distance, W, labels] = deal(NaN(numel(flashes), 1), zeros(numel(flashes), s.n), cell(numel(flashes), 1));
distance(known) = 0;
for label = differentPhases(s, flashes)
    open = find(known & ~(distance < -1e-6)).';
    [least, where] = search(s, flashes(open), planes(open, :), label{1});
    lower = least < distance(open);
    distance(open(lower)) = least(lower);
    W(open(lower), :) = where(lower, :);
    labels(open(lower)) = label;
end
limit = 1e-6 * ones(size(distance));
limit(~known) = NaN;
at = flashStates(s, flashes);
lines = @(row) [flashLines(s, flashes(row))
                {sprintf('k = %d; x = Y(k, :); some = x > 0;', largest(row))
                 'ask = @(x, phase) capeOpenSinglePhaseProp(handle, ''logFugacityCoefficient'', T, P, x, phase);'
                 'd = log(x) + ask(x, phases{k});'
                 numbersText('W', W(row, :))
                 sprintf('g = log(W) + ask(W, ''%s'') - d;', labels{row})
                 'some = some & W > 0; deviation = -sum(W(some) .* g(some))'; 'limit = 1e-6'}];
before = numel(tally.findings);
tally = checkCompared(tally, 'failure', 'The result of a flash is not stable', max(0, -distance), limit, at, lines);
if numel(tally.findings) > before
    [~, worst] = min(distance);
    new = statesOf(s, labels{worst}, flashes(worst).T, flashes(worst).P, W(worst, :));
    tally.findings(end).where = sprintf('%s; a phase would lower the Gibbs energy: %s', tally.findings(end).where, ...
                                        stateText(new, 1));
end
end

% log(x) + lnPhi(x) in the largest phase of each flash, and which one it is.
function [planes, largest] = tangents(s, flashes)
planes = NaN(numel(flashes), s.n);
largest = zeros(numel(flashes), 1);
for k = 1:numel(flashes)
    [~, largest(k)] = max(flashes(k).fractions);
    x = flashes(k).X(largest(k), :);
    lnPhi = phaseValues(s, 'logFugacityCoefficient', flashes(k).T, flashes(k).P, x, flashes(k).phases{largest(k)});
    if isequal(size(lnPhi), size(x)) && all(x >= 0)
        planes(k, :) = log(x) + lnPhi;
    end
end
end

% The labels of phases, without those that are the same as one before by their fugacities.
function labels = differentPhases(s, flashes)
labels = cell(1, 0);
seen = {};
f = flashes(evenly(numel(flashes), 12));
for label = reshape(s.phases, 1, [])
    values = phaseValues(s, 'logFugacityCoefficient', [f.T].', [f.P].', vertcat(f.Z), label{1});
    alike = false;
    for k = 1:numel(seen)
        alike = alike || isequaln(seen{k}, values);
    end
    if ~alike && ~isempty(values)
        labels{end + 1} = label{1}; %#ok<AGROW>
        seen{end + 1} = values; %#ok<AGROW>
    end
end
end

% The least distance for each flash, among trial phases of a kind, and where it is.
function [least, where] = search(s, flashes, planes, label)
[least, where] = deal(zeros(numel(flashes), 1), zeros(numel(flashes), s.n));
[W, owner] = trials(s, flashes);
T = [flashes.T].';
P = [flashes.P].';
for iteration = 1:40
    if isempty(owner)
        return
    end
    lnPhi = phaseValues(s, 'logFugacityCoefficient', T(owner), P(owner), W, label);
    if ~isequal(size(lnPhi), size(W))
        return
    end
    none = W == 0;
    next = planes(owner, :) - lnPhi;
    terms = W .* (log(W) - next);
    terms(none) = 0;
    next(none) = -Inf;
    distance = sum(terms, 2);
    for k = find(distance < least(owner)).'
        if distance(k) < least(owner(k))
            least(owner(k)) = distance(k);
            where(owner(k), :) = W(k, :);
        end
    end
    Y = exp(bsxfun(@minus, next, max(next, [], 2)));
    Y = bsxfun(@rdivide, Y, sum(Y, 2));
    going = all(isfinite(Y), 2) & max(abs(Y - W), [], 2) > 1e-7 & least(owner) > -1e-3;
    W = Y(going, :);
    owner = owner(going);
end
end

% Rows of fractions from which the search starts, and the number of the flash that each is for.
function [W, owner] = trials(s, flashes)
[W, owner] = deal(zeros(0, s.n), zeros(0, 1));
acentric = constantValues(s.handle, 'acentricFactor', s.n);
acentric(~isfinite(acentric)) = 0.2; % an estimate is all that is made of it
critical = struct('T', s.T0, 'P', s.P0, 'acentric', acentric);
for k = 1:numel(flashes)
    Z = flashes(k).Z;
    there = find(Z > 0);
    K = exp(max(-30, min(30, wilson(critical, flashes(k).T, flashes(k).P))));
    new = [Z .* K; Z ./ K; Z .* nthroot(K, 3); mean(flashes(k).X, 1)];
    pure = zeros(numel(there), s.n);
    pure(:, there) = 0.1 / max(1, numel(there) - 1);
    pure(sub2ind(size(pure), 1:numel(there), there)) = 0.9;
    new = [new; pure]; %#ok<AGROW>
    new(:, Z == 0) = 0;
    W = [W; bsxfun(@rdivide, new, sum(new, 2))]; %#ok<AGROW>
    owner = [owner; k + zeros(size(new, 1), 1)]; %#ok<AGROW>
end
end
