function [x, level, y] = fractionsOf(system, V, weights, followed)
%fractionsOf  Fractions of one compound in both phases, by WEIGHTS of the compounds, and levels of rows of binarySystem.
%
%   FOLLOWED is the place of the system's first compound among those asked for, of which it is the first one's fraction.
[X, Y] = system.fractions(V);
if followed == 2
    [X, Y] = deal(fliplr(X), fliplr(Y));
end
x = X(:, 1) * weights(1) ./ (X * weights(:));
y = Y(:, 1) * weights(1) ./ (Y * weights(:));
level = exp(V(:, 3));
end
