function at = statesOf(s, phase, T, P, X)
%statesOf  States of a check: a label of a phase ('' for those of flashes), T and P as columns, and rows X.
at = struct('phase', phase, 'T', T(:), 'P', P(:), 'X', X, 'compounds', {s.compounds});
end
