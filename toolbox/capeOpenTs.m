function [entropy, T, vaporFraction, isobars, quality] = capeOpenTs(handle, Z, varargin)
%capeOpenTs  Temperature-entropy diagram of a mixture or a compound, calculated and drawn.
%
%   [entropy, T, vaporFraction, isobars, quality] = capeOpenTs(handle, Z, Pmin, P, fractions)
%
%   Follows dew and bubble points of a mixture as capeOpenPhaseEnvelope does, or
%   of a single compound, and calculates entropy on them, along isobars and
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
%     P       pressures of the isobars in Pa; round values around the
%             two-phase region if it is left out or empty
%     fractions
%             vapor fractions from 0 to 1 for which lines are calculated;
%             0.2, 0.4, 0.6 and 0.8 if it is left out
%
%   Results:
%     entropy
%             entropies of the mixture at dew and bubble points, double N-by-1,
%             in J/mol/K or J/kg/K; rows of NaN part lines that do not join
%     T       temperatures in K, double N-by-1
%     vaporFraction
%             double N-by-1: 1 at a dew point, 0 at a bubble point, NaN where a
%             second liquid appears
%     isobars
%             cell array with a double M-by-2 for each of P: entropies and
%             temperatures
%     quality cell array with a double K-by-2 for each of the fractions:
%             entropies and temperatures
%
%   Errors:
%     'Invalid number of arguments for capeOpenTs'
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
%     'Expected positive pressures of isobars'
%             A value of P is not positive, or no number.
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
%     entropy = capeOpenTs(handle, X, 1e5);
%     evaporation = entropy(1) - entropy(end)
%     capeOpenTs(handle, X)
%     capeOpenRelease(handle)
%
%   See also capeOpenPh, capeOpenPhaseEnvelope, capeOpenMultiFlash.
if nargin < 2 || nargin > 5
    error('Verdanth:error', 'Invalid number of arguments for capeOpenTs');
end
kind = struct('property', 'entropy', 'ordinate', 'Temperature', 'lines', 'isobars', ...
              'label', 'temperature / K', 'unit', 1, 'draw', @plot, ...
              'refusal', 'Expected positive pressures of isobars', ...
              'valuesOf', @(Pmin, T, P) roundPressures(Pmin, 2 * max(P)), ...
              'rangeOf', @(Pmin, T, P) linspace(min(T), 1.3 * max(T), 300));
[entropy, T, vaporFraction, isobars, quality] = domeDiagram(kind, nargout == 0, handle, Z, varargin{:});
if nargout == 0
    clear('entropy');
end
end
