function [mistakes, sound] = wrongCalls(s)
%wrongCalls  Calls with a mistake that reach a package, and SOUND, a call without one.
%
%   A struct array: SUBJECT is what is asked for, and WHAT the mistake; T, P and X are what stands in CALL, its text;
%   ANSWERED tells what an answer is: a 'failure', or a 'note' of correlations, which may have a value where nothing
%   can be; RIGHT is the text of a call that may give the same, if there is one; NaN is then a refusal, too. Lengths,
%   phases, specifications, and names that the vocabulary of phases does not have are not among them: the library
%   refuses these itself. A number that is not set is NaN, which a package finds missing when it asks for it.
flash = s.flashes([find(cellfun(@isempty, {s.flashes.problem}), 1), 1]);
[T, P, X] = deal(flash(1).T, flash(1).P, flash(1).Z);
byTP = 'capeOpenMultiFlash(handle, X, ''Temperature'', T, ''Pressure'', P, ''Unspecified'', ''%s'')';
names = {'vaporFraction', 'volume', 'enthalpy'};
names = [names(ismember(lower(names), lower(s.flashProps))), {'Temperature'}];
parts = cellfun(@(name) sprintf(byTP, name), names, 'UniformOutput', false);
mistakes = struct('subject', {}, 'what', {}, 'T', {}, 'P', {}, 'X', {}, 'call', {}, 'answered', {}, 'right', {});
mistakes = atNothing(mistakes, 'A flash', T, P, X, 'capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P)', ...
                     parts{1});
specified = {'Temperature', 'T', 'Temperature', 'T', 'the same specification twice'
             'vaporFraction', '2', 'Pressure', 'P', 'a vapor fraction of 2'
             'enthalpy', '1e15', 'Pressure', 'P', 'an enthalpy of 1e15 J/mol'
             'volume', '-1', 'Pressure', 'P', 'a volume below zero'};
for k = 1:size(specified, 1)
    if all(ismember(lower(specified(k, [1, 3])), lower(s.flashProps)))
        call = sprintf('capeOpenFlash(handle, X, ''%s'', %s, ''%s'', %s)', specified{k, 1:4});
        mistakes = added(mistakes, 'A flash', specified{k, 5}, T, P, X, call, 'failure', '');
    end
end
call = 'capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P, ''noSuchSolution'')';
mistakes = added(mistakes, 'A flash', 'an unknown type of solution', T, P, X, call, 'note', '');
at = s.states(find(arrayfun(@(at) ~isempty(at.T), s.states), 1));
if ~isempty(at) && ~isempty(s.single)
    text = sprintf('capeOpenSinglePhaseProp(handle, ''%s'', T, P, X, ''%s'')', s.single{1}, at.phase);
    mistakes = atNothing(mistakes, s.single{1}, at.T(1), at.P(1), at.X(1, :), text, text);
    parts{end + 1} = sprintf('capeOpenSinglePhaseProp(handle, ''%s'', %.17g, %.17g, X, ''%s'')', s.single{1}, ...
                             at.T(1), at.P(1), at.phase);
end
mistakes = ofCompounds(mistakes, s, T, P, X);
sound = struct('T', T, 'P', P, 'X', X, 'call', ['[', strjoin(parts, ', '), ']']);
end

function mistakes = added(mistakes, varargin)
mistakes(end + 1) = cell2struct(varargin(:), fieldnames(mistakes), 1);
end

% At conditions that nothing can have. CALLTWICE is that for the composition with the sum 2.
function mistakes = atNothing(mistakes, subject, T, P, X, call, callTwice)
numbers = {-10, 'below zero'; 0, 'of zero'; NaN, 'that is not set'; Inf, 'without end'};
for k = 1:size(numbers, 1)
    [x, words] = numbers{k, :};
    mistakes = added(mistakes, subject, ['a temperature ', words], x, P, X, call, 'failure', '');
    mistakes = added(mistakes, subject, ['a pressure ', words], T, x, X, call, 'failure', '');
end
[~, most] = max(X);
for k = [1, 3]
    [x, words] = numbers{k, :};
    wrong = X;
    wrong(most) = x;
    mistakes = added(mistakes, subject, ['a fraction ', words], T, P, wrong, call, 'failure', '');
end
mistakes = added(mistakes, subject, 'fractions that are all zero', T, P, 0 * X, call, 'failure', '');
mistakes = added(mistakes, subject, 'fractions with the sum 2', T, P, 2 * X, callTwice, 'failure', ...
                 strrep(callTwice, 'X', '(X / 2)'));
end

function mistakes = ofCompounds(mistakes, s, T, P, X)
call = 'capeOpenConstant(handle, ''noSuchConstant'')';
mistakes = added(mistakes, 'A constant', 'an unknown name', T, P, X, call, 'failure', '');
pure = {'TDependent', 'temperature', s.T; 'PDependent', 'pressure', s.P};
for k = 1:2
    [kind, variable, list] = pure{k, :};
    call = sprintf('capeOpen%sProp(handle, ''%%s'', %s)', kind, upper(variable(1)));
    if isempty(list)
        continue
    end
    mistakes = added(mistakes, ['A property by ', variable], 'an unknown name', T, P, X, ...
                     sprintf(call, 'noSuchProperty'), 'failure', '');
    for x = [-10, NaN]
        what = sprintf('a %s of %g', variable, x);
        mistakes = added(mistakes, list{1}, what, x, x, X, sprintf(call, list{1}), 'note', '');
    end
end
end
