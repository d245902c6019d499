function lines = stateLines(s, T, P, X)
%stateLines  The lines that open the package of a check and set T, P and X.
lines = {s.opening; [numbersText('T', T), ' ', numbersText('P', P)]; numbersText('X', X)};
end
