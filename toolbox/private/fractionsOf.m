function [x, level, y] = fractionsOf(system, V, weights)
%fractionsOf  Fractions of compound 1 in both phases, by WEIGHTS of the compounds, and levels of rows of binarySystem.
[X, Y] = system.fractions(V);
x = X(:, 1) * weights(1) ./ (X * weights(:));
y = Y(:, 1) * weights(1) ./ (Y * weights(:));
level = exp(V(:, 3));
end
