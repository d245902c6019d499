function P = checkedPressure(P)
%checkedPressure  The lowest pressure of a diagram, 1 bar if there is none.
if isnumeric(P) && isempty(P)
    P = 1e5;
elseif ~isnumeric(P) || ~isscalar(P) || ~(P > 0)
    error('Verdanth:error', 'Expected a positive pressure');
end
P = full(double(P)); % numbers of other classes would be calculated with in theirs
end
