function value = evaluated(expression, names, values, T, P, X, R)
%evaluated  The value of an expression, in which there may be these names of properties, T, P, X and R.
%
%   The same text is printed among the lines that reproduce a finding.
ask = str2func(['@(', strjoin([{'T', 'P', 'X', 'R'}, reshape(names, 1, [])], ', '), ') ', expression]);
value = ask(T, P, X, R, values{:});
end
