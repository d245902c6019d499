function [values, problem] = phaseValues(s, name, T, P, X, phase)
%phaseValues  One property of a phase over states: NaN in rows at which the package fails, [] if it fails in all.
problem = '';
try
    try
        values = capeOpenSinglePhaseProp(s.handle, name, T, P, X, phase);
    catch % most states have values: those that fail are looked for where there are some
        values = capeOpenSinglePhaseProp(s.handle, name, T, P, X, phase, 'NaN');
    end
    rows = max([numel(T), numel(P), size(X, 1)]);
    if size(values, 1) ~= rows && rows > 1
        values = [];
        problem = 'The result has not a row for each state';
    end
catch failure
    values = [];
    problem = strtok(failure.message, sprintf('\n'));
end
end
