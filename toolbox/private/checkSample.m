function s = checkSample(handle, opening, options, among, sampled)
%checkSample  What a package is checked at: its lists, compositions, flashes at T and P, and the phases that they give.
%
%   The phases of flashes are the states at which values are compared: there a package has to have them. S.STATES has a
%   struct array with an element for each phase label, S.FLASHES one with an element for each flash that was asked for.
%   If no flash succeeds, every phase is taken everywhere. Compositions that are not told are of the compounds AMONG
%   alone, numbers of them, if these are given. SAMPLED, if given, is called with the flashes that are done and the
%   number that there will be.
s = packageLists(handle);
s.opening = opening;
s.quick = strcmpi(options.Level, 'quick');
s.seed = options.Seed;
if nargin < 4 || isempty(among)
    among = 1:s.n;
end
if nargin < 5
    sampled = @(flashes, count) [];
end
s.R = 8.31446261815324;
s.Z = compositions(s, options.Compositions, among);
s = withFlashes(s, options, sampled);
s = withStates(s);
s.R = gasConstant(s);
end

% Equal fractions, random ones, one with a trace and nothing of another compound, pairs of neighbors, pure compounds.
function Z = compositions(s, given, among)
if ~isempty(given)
    if isstruct(given) || iscell(given)
        given = capeOpenComposition(s.handle, given);
    end
    if size(given, 2) ~= s.n || any(given(:) < 0) || any(~isfinite(given(:))) || any(sum(given, 2) <= 0)
        error('Verdanth:error', 'Expected compositions with a fraction for each of the %d compounds', s.n);
    end
    Z = bsxfun(@rdivide, double(full(given)), sum(given, 2));
    return
end
n = numel(among);
Z = zeros(1, s.n);
if n == 1
    Z(among) = 1;
    return
end
more = 6;
pure = min(n, 12);
pairs = min(n - 2, 4);
if s.quick
    more = 2;
    pure = 2;
    pairs = min(n - 2, 1);
end
[x, next] = uniformNumbers(s.seed, (more + 1) * n);
x = -log(reshape(x, more + 1, n));
x(more + 1, 1 + mod(next, n)) = 0;
if n > 2
    x(more + 1, 1 + mod(next + 1, n)) = 1e-8;
end
which = 1 + round((0:pure - 1) * (n - 1) / max(1, pure - 1));
first = reshape(evenly(n - 1, pairs), [], 1); % where a package knows not how all compounds mix, it may know of two
both = 0.7 * bsxfun(@eq, first, 1:n) + 0.3 * bsxfun(@eq, first + 1, 1:n);
x = [ones(1, n); x; both; double(bsxfun(@eq, which(:), 1:n))];
Z(size(x, 1), 1) = 0;
Z(:, among) = bsxfun(@rdivide, x, sum(x, 2));
end

% Temperatures and pressures around the critical ones of each composition, or in the ranges that were told.
function s = withFlashes(s, options, sampled)
count = 16;
if s.quick
    count = 6;
end
s.flashes = struct('Z', {}, 'T', {}, 'P', {}, 'phases', {}, 'fractions', {}, 'X', {}, 'Tr', {}, 'Pr', {}, ...
    'problem', {});
for k = 1:size(s.Z, 1)
    T0 = s.Z(k, :) * s.T0.';
    P0 = s.Z(k, :) * s.P0.';
    u = reshape(uniformNumbers(s.seed + 1000 * k, 2 * count), 2, count);
    TRange = T0 * [0.6, 1.4];
    PRange = [2e4, 2 * P0];
    if ~isempty(options.TRange)
        TRange = options.TRange;
    end
    if ~isempty(options.PRange)
        PRange = options.PRange;
    end
    T = TRange(1) + u(1, :) * (TRange(2) - TRange(1));
    P = exp(log(PRange(1)) + u(2, :) * log(PRange(2) / PRange(1)));
    if isempty(options.TRange) && isempty(options.PRange)
        if nnz(s.Z(k, :)) > 1
            T(1) = 0.98 * T0; % near the critical point
            P(1) = 0.9 * P0;
        end
        [T(2), P(2)] = nearSaturation(s, s.Z(k, :), 0.8 * T0, T(2), P(2));
    end
    for l = 1:count
        s.flashes(end + 1) = sampledFlash(s, s.Z(k, :), T(l), P(l));
        sampled(s.flashes, count * size(s.Z, 1));
    end
end
end

% Where a mixture is half vapor, and a pure compound nearly boils; the other T and P, if the package does not tell.
function [T, P] = nearSaturation(s, Z, T, otherT, otherP)
P = NaN;
try
    P = capeOpenMultiFlash(s.handle, Z, 'Temperature', T, 'vaporFraction', 0.5, 'Unspecified', 'Pressure');
catch
    % it does not
end
if ~(P > 0)
    [T, P] = deal(otherT, otherP);
elseif nnz(Z) == 1
    P = 0.999 * P;
end
end

function s = withStates(s)
solved = any(cellfun(@isempty, {s.flashes.problem}));
some = s.flashes;
if solved
    some = some(wholeFlashes(s, some));
end
for k = 1:numel(s.phases)
    [T, P, X] = deal([]);
    for flash = some
        if ~solved
            [T(end + 1, 1), P(end + 1, 1), X(end + 1, :)] = deal(flash.T, flash.P, flash.Z); %#ok<AGROW>
        end
        for phase = find(strcmpi(flash.phases(:), s.phases{k})).'
            x = flash.X(phase, :);
            if all(x >= 0) && sum(x) > 0.5 && flash.fractions(phase) >= 0
                [T(end + 1, 1), P(end + 1, 1), X(end + 1, :)] = deal(flash.T, flash.P, x / sum(x)); %#ok<AGROW>
            end
        end
    end
    s.states(k) = statesOf(s, s.phases{k}, T, P, X);
end
end

% The package's own: some have one of fewer digits. P V / T at low pressure, extrapolated to none.
function R = gasConstant(s)
R = s.R;
if isempty(s.vapor) || ~any(strcmpi(s.single, 'volume'))
    return
end
P = [200; 100];
T = 1.2 * max([300, s.Tc(isfinite(s.Tc))]);
V = phaseValues(s, 'volume', T, P, s.Z(1, :), s.vapor);
if numel(V) == 2
    own = P .* V / T;
    own = 2 * own(2) - own(1);
    if abs(own / R - 1) < 1e-3
        R = own;
    end
end
end
