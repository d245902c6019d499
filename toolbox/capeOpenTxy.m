function [x, T, y, liquids] = capeOpenTxy(handle, compounds, P)
%capeOpenTxy  Phase diagram of two compounds at one pressure, calculated and drawn.
%
%   [x, T, y, liquids] = capeOpenTxy(handle, compounds, P)
%
%   Follows the boiling liquid and its vapor from one pure compound to the
%   other, through azeotropes, or to the critical point of the mixture. Where
%   there are two liquids, both have the vapor of a horizontal line, and the
%   two that are in equilibrium without vapor are followed as well. Each point
%   is tested by a flash of the package. Without results the lines are drawn
%   into the current axes. The package has to give logarithms of fugacity
%   coefficients and densities.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     compounds
%             cell array with the names of two compounds, or their formulas
%             or CAS numbers, as capeOpenComposition takes them
%     P       pressure in Pa, double scalar
%
%   Results:
%     x       mole fraction of the first compound in the boiling liquid, in
%             mass basis mass fraction, double N-by-1, ascending along the line.
%             Where there are two liquids, two rows have the same T and y;
%             lines that do not join are parted by a row of NaN
%     T       temperatures in K, double N-by-1
%     y       the same fraction in the vapor, double N-by-1
%     liquids double M-by-3: this fraction in one liquid, temperatures in K, and the
%             fraction in the other one that is in equilibrium with it
%
%   Errors:
%     'Invalid number of arguments for capeOpenTxy'
%             There are fewer than have to be given.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected a cell array with the names of two compounds'
%             The second argument is something else.
%     'The package has no compound "..."'
%             Neither a name nor a formula nor a CAS number is this. Names that
%             are near it follow.
%     '"..." may be ...'
%             Several compounds of the package have this formula.
%     'The two compounds are the same'
%             Two different ones are needed.
%     'Expected a positive pressure'
%             P is not a positive scalar.
%     'No equilibrium of vapor and liquid found for the two compounds'
%             Neither compound boils at this pressure, and no mixture was found
%             that does.
%
%   Warnings:
%     'The phase diagram is not complete: ...'
%             A line has an open end. What follows says where, and why.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     [x, T, y] = capeOpenTxy(handle, {'propane', 'n-pentane'}, 5e5);
%     T([1 end])
%     capeOpenRelease(handle)
%
%   See also capeOpenPxy, capeOpenPhaseEnvelope, capeOpenFlash.
if nargin < 3
    error('Verdanth:error', 'Invalid number of arguments for capeOpenTxy');
end
[vapors, both, reasons, names] = binaryPhaseDiagram(handle, compounds, 'Pressure', P);
[x, T, y, liquids] = binaryResults(vapors, both, reasons);
if nargout == 0
    drawBinaryDiagram(handle, names{1}, vapors, both, 1, 'temperature / K', ...
                      sprintf('%s and %s at %g bar', names{:}, P / 1e5));
    clear('x');
end
end
