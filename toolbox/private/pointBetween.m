function v = pointBetween(before, after, fixed, goal)
%pointBetween  Variables on the cubic through two points of solvePoint, where the one with the number FIXED has a value.
width = after.v(fixed) - before.v(fixed);
v = hermite(before.v, after.v, width * before.tangent / before.tangent(fixed), ...
            width * after.tangent / after.tangent(fixed), (goal - before.v(fixed)) / width);
end
