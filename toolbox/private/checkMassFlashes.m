function tally = checkMassFlashes(s, tally)
%checkMassFlashes  Flashes in mass basis give the states of those in mole basis.
%
%   Phases are the same, fractions and compositions after conversion by the molar masses, to 1e-9 as in another order
%   of the specifications. With a specification per kg the temperature is the same to 1e-6, the tolerance of an outer
%   iteration.
some = wholeFlashes(s, s.flashes);
some = s.flashes(some(evenly(numel(some), 40 - 30 * s.quick)));
some = some(arrayfun(@(f) ~any(isnan(s.molar)) && all(f.Z * s.molar.' > 0), some));
names = {'enthalpy', 'entropy', 'volume'};
names = names(ismember(lower(names), lower(s.flashProps)));
if isempty(some)
    return
end
restore = onCleanup(@() capeOpenBasis('mole')); %#ok<NASGU>
for flash = some
    tally = plain(s, tally, flash);
    for name = names
        tally = specified(s, tally, flash, name{1});
    end
end
tally = mergedFindings(tally);
end

function lines = massLines(s, flash)
lines = [stateLines(s, flash.T, flash.P, flash.Z)
         {'m = capeOpenConstant(handle, ''molecularWeight'') / 1000; M = X * m.''; W = X .* m / M;'}];
end

function tally = plain(s, tally, flash)
at = flashStates(s, flash);
M = flash.Z * s.molar.';
W = flash.Z .* s.molar / M;
capeOpenBasis('mass');
try
    [phases, fractions, X] = capeOpenFlash(s.handle, W, 'Temperature', flash.T, 'Pressure', flash.P);
    problem = '';
catch failure
    problem = strtok(failure.message, sprintf('\n'));
end
capeOpenBasis('mole');
lines = [massLines(s, flash)
         {'[p1, f1, Y1] = capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P); capeOpenBasis(''mass'')'
          '[p2, f2, Y2] = capeOpenFlash(handle, W, ''Temperature'', T, ''Pressure'', P); capeOpenBasis(''mole'')'
          'deviation = Inf; limit = 1e-9;'
          'if isequal(p1, p2)'
          '    f1 = f1 .* (Y1 * m.'') / M; Y1 = bsxfun(@rdivide, bsxfun(@times, Y1, m), Y1 * m.'');'
          '    deviation = max(abs([f1(:) - f2(:); Y1(:) - Y2(:)]))'; 'end'}];
if ~isempty(problem)
    tally.asked = tally.asked + 1;
    what = ['A flash in mass basis fails: ', problem];
    tally = checkFound(tally, 'failure', what, stateText(at, 1), lines, at.T, at.P, 1);
    return
end
deviation = Inf;
if isequal(phases(:), flash.phases(:)) && isequal(size(X), size(flash.X)) && numel(fractions) == numel(phases)
    masses = flash.X * s.molar.';
    inMass = bsxfun(@rdivide, bsxfun(@times, flash.X, s.molar), masses);
    deviation = max(abs([flash.fractions(:) .* masses / M - fractions(:); inMass(:) - X(:)]));
end
what = 'A flash in mass basis is not that in mole basis';
tally = checkCompared(tally, 'failure', what, deviation, 1e-9, at, @(row) lines);
end

% The state may be another that has the same value; then it is none in mole basis either.
function tally = specified(s, tally, flash, name)
ask = @(Z, value) capeOpenMultiFlash(s.handle, Z, 'Pressure', flash.P, name, value, 'Unspecified', 'Temperature');
at = flashStates(s, flash);
M = flash.Z * s.molar.';
try
    value = capeOpenMultiFlash(s.handle, flash.Z, 'Temperature', flash.T, 'Pressure', flash.P, 'Unspecified', name);
    expected = ask(flash.Z, value);
catch
    return % this pair is not solved
end
if ~isfinite(value) || ~isfinite(expected)
    return
end
found = NaN;
capeOpenBasis('mass');
try
    found = ask(flash.Z .* s.molar / M, value / M);
catch
    % no number, which is beyond the limit
end
capeOpenBasis('mole');
lines = [massLines(s, flash)
         {sprintf('ask = @(Z, value) capeOpenMultiFlash(handle, Z, ''Pressure'', P, ''%s'', value, ...', name)
          '    ''Unspecified'', ''Temperature'');'
          sprintf('value = %.17g; a = ask(X, value); capeOpenBasis(''mass'')', value)
          'b = ask(W, value / M); capeOpenBasis(''mole'')'; 'deviation = abs(b - a)'; 'limit = 1e-6 * T'}];
what = sprintf('A flash by pressure and %s per kg does not give the temperature of that per mole', name);
tally = checkCompared(tally, 'failure', what, found - expected, 1e-6 * flash.T, at, @(row) lines);
end
