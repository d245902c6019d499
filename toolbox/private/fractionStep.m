function h = fractionStep(x)
%fractionStep  The largest step of a mole fraction for differences: a thousandth of what may change.
h = 1e-4;
if x > 0
    h = 1e-3 * min(x, 1 - x);
end
end
