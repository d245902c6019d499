function P = roundPressures(from, below)
%roundPressures  Pressures in steps of 1, 2, 5, 10 from one on.
decades = 10 .^ (floor(log10(from)):ceil(log10(below)));
P = reshape([1; 2; 5] * decades, 1, []);
P = P(P >= from & P < below);
end
