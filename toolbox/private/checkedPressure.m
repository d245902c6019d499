function P = checkedPressure(P)
%checkedPressure  The lowest pressure of a diagram, 1 bar if there is none.
if isnumeric(P) && isempty(P)
    P = 1e5;
end
P = checkedPositive(P, 'pressure');
end
