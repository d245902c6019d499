function [x, P, y] = capeOpenPxy(handle, compounds, T)
%capeOpenPxy  Phase diagram of two compounds at one temperature, calculated and drawn.
%
%   [x, P, y] = capeOpenPxy(handle, compounds, T)
%
%   Follows the boiling liquid and its vapor from one pure compound to the
%   other, or to the critical point of the mixture, as far as the package
%   calculates, and draws both lines into the current axes. It needs no flash,
%   but logarithms of fugacity coefficients and densities from the package.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     compounds
%             cell array with the names of two compounds
%     T       temperature in K, double scalar
%
%   Results:
%     x       mole fraction of the first compound in the boiling liquid, in
%             mass basis mass fraction, double N-by-1, ascending along the line
%     P       pressures in Pa, double N-by-1
%     y       the same fraction in the vapor, double N-by-1
%
%   Errors:
%     'Invalid number of arguments for capeOpenPxy'
%             There are fewer than have to be given.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected a cell array with the names of two compounds'
%             The second argument is something else.
%     'The package has no compound "..."'
%             Names are those that capeOpenCompoundList gives.
%     'The two compounds are the same'
%             Two different ones are needed.
%     'Expected a positive temperature'
%             T is not a positive scalar.
%     'No equilibrium of vapor and liquid found for the two compounds'
%             Neither compound boils at this temperature.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     [x, P, y] = capeOpenPxy(handle, {'propane', 'n-pentane'}, 320);
%     P([1 end])
%     capeOpenRelease(handle)
%
%   See also capeOpenTxy, capeOpenPhaseEnvelope, capeOpenFlash.
if nargin < 3
    error('Verdanth:error', 'Invalid number of arguments for capeOpenPxy');
end
[x, P, y] = binaryPhaseDiagram(handle, compounds, 'Temperature', T);
drawBinaryDiagram(x, P / 1e5, y, compounds, 'pressure / bar', ...
                  sprintf('%s and %s at %g K', compounds{:}, T), 'northwest');
end
