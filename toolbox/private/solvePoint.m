function point = solvePoint(system, v, fixed, phases, most)
%solvePoint  Newton's method for one point of a curve, with one of the variables held.
%
%   point = solvePoint(system, v, fixed, phases, most)
%
%   SYSTEM.linearize(v, phases) gives residuals, their derivatives and the densities of both phases. POINT has the
%   fields v, tangent (of length 1, in one of the two directions), densities, phases, jacobian and effort, the number of
%   steps; it is empty where MOST steps were not enough.
point = [];
m = numel(v);
free = [1:fixed - 1, fixed + 1:m];
for effort = 1:most
    [F, J, densities] = system.linearize(v, phases);
    if isempty(F)
        return
    end
    change = -(J(:, free) \ F).';
    largest = max(abs(change));
    if ~isfinite(largest)
        return
    end
    v(free) = v(free) + change / max(1, largest);
    if largest < 1e-7 % the next one would be smaller by orders of magnitude
        row = zeros(1, m);
        row(fixed) = 1;
        tangent = ([J; row] \ [zeros(m - 1, 1); 1]).';
        if all(isfinite(tangent))
            point = struct('v', v, 'tangent', tangent / norm(tangent), 'densities', densities, 'phases', phases, ...
                           'jacobian', J, 'effort', effort);
        end
        return
    end
end
end
