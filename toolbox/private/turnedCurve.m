function curve = turnedCurve(curve)
%turnedCurve  A curve of curveOf from its other end.
for field = {'T', 'P', 'vaporFraction', 'points', 'slopes'}
    curve.(field{1}) = flipud(curve.(field{1}));
end
curve.slopes = -curve.slopes;
end
