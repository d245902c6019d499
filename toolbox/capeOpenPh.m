function [enthalpy, P, vaporFraction, isotherms, quality] = capeOpenPh(handle, Z, varargin)
%capeOpenPh  Pressure-enthalpy diagram of a mixture or a compound, calculated and drawn.
%
%   [enthalpy, P, vaporFraction, isotherms, quality] = capeOpenPh(handle, Z, Pmin, T, fractions)
%
%   Follows dew and bubble points of a mixture as capeOpenPhaseEnvelope does, or
%   of a single compound, and calculates enthalpy on them, along isotherms and
%   along lines of constant vapor fraction by flashes of the package. Between two
%   points that capeOpenPhaseEnvelope gives there are three more, interpolated
%   along the curve. Without results it draws all into the current axes.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     Z       composition, double with one value for each compound: mole
%             fractions, in mass basis mass fractions. It may be given by names,
%             as capeOpenComposition takes them.
%     Pmin    lowest pressure in Pa; 1e5 if it is left out or empty
%     T       temperatures of the isotherms in K; round values around the
%             two-phase region if it is left out or empty
%     fractions
%             vapor fractions from 0 to 1 for which lines are calculated;
%             0.2, 0.4, 0.6 and 0.8 if it is left out
%
%   Results:
%     enthalpy
%             enthalpies of the mixture at dew and bubble points, double N-by-1,
%             in J/mol or J/kg; rows of NaN part lines that do not join
%     P       pressures in Pa, double N-by-1
%     vaporFraction
%             double N-by-1: 1 at a dew point, 0 at a bubble point, NaN where a
%             second liquid appears
%     isotherms
%             cell array with a double M-by-2 for each of T: enthalpies and
%             pressures
%     quality cell array with a double K-by-2 for each of the fractions:
%             enthalpies and pressures
%
%   Errors:
%     'Invalid number of arguments for capeOpenPh'
%             There are fewer than have to be given, or too many.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Invalid number of values for compositions: must match number of compounds'
%             Z has more or fewer values than the package has compounds.
%     'Expected fractions that are not negative'
%             A value of Z is negative or no number, or all are 0.
%     'Expected a positive pressure'
%             Pmin is not a positive scalar.
%     'Expected positive temperatures of isotherms'
%             A value of T is not positive, or no number.
%     'Expected vapor fractions from 0 to 1'
%             One of fractions is none.
%     'No dew point found at ... Pa'
%             No bubble point either. Try another Pmin.
%
%   Warnings:
%     'The phase envelope is not complete: ...'
%             A line of dew or bubble points has an open end, or flashes fail on
%             it. What follows says which, where, and why.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Refrigerants');
%     X = double(strcmp(capeOpenCompoundList(handle), 'R-134a')).';
%     enthalpy = capeOpenPh(handle, X, 1e5);
%     evaporation = enthalpy(1) - enthalpy(end)
%     capeOpenPh(handle, X)
%     capeOpenRelease(handle)
%
%   See also capeOpenTs, capeOpenPhaseEnvelope, capeOpenMultiFlash.
if nargin < 2 || nargin > 5
    error('Verdanth:error', 'Invalid number of arguments for capeOpenPh');
end
kind = struct('property', 'enthalpy', 'ordinate', 'Pressure', 'lines', 'isotherms', ...
              'label', 'pressure / bar', 'unit', 1e5, 'draw', @semilogy, ...
              'refusal', 'Expected positive temperatures of isotherms', ...
              'valuesOf', @(Pmin, T, P) roundValues(min(T), 1.3 * max(T), 8), ...
              'rangeOf', @(Pmin, T, P) exp(linspace(log(Pmin), log(2 * max(P)), 200)));
[enthalpy, P, vaporFraction, isotherms, quality] = domeDiagram(kind, nargout == 0, handle, Z, varargin{:});
if nargout == 0
    clear('enthalpy');
end
end
