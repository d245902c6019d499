function X = movedFractions(x, j, steps)
%movedFractions  A row of mole fractions for each step: of compound j there is more, of all others in proportion less.
%
%   Of a mole of the mixture, a step is the derivative by moles of j; the sum stays 1.
X = repmat(x, numel(steps), 1) - steps(:) * x;
X(:, j) = X(:, j) + steps(:);
end
