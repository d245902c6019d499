function [T, P, vaporFraction, critical, threePhases, quality] = capeOpenPhaseEnvelope(handle, Z, Pmin, fractions)
%capeOpenPhaseEnvelope  Phase envelope of a mixture, calculated and drawn.
%
%   [T, P, vaporFraction, critical, threePhases, quality] = capeOpenPhaseEnvelope(handle, Z, Pmin, fractions)
%
%   Follows the curve of dew points from a low pressure through the critical
%   point, and the curve of bubble points down to the same pressure. Lines that
%   go on to any pressure are followed up to 2000 bar or as far as the package
%   calculates. Each point is tested by a flash of the package: where another
%   phase is more stable, the line goes on with that one, so that there may be
%   more branches. Where two liquids boil together, the bubble points are those
%   of both. Without results it draws the lines into the current axes.
%
%   The package has to give logarithms of fugacity coefficients and densities of
%   a vapor and a liquid phase; their derivatives are used if it has them.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     Z       composition, double with one value for each compound: mole
%             fractions, in mass basis mass fractions; two or more are above
%             0. It may be given by names, as capeOpenComposition takes them.
%     Pmin    pressure where the curves begin and end, in Pa; 1e5 if it is
%             left out or empty
%     fractions
%             vapor fractions from 0 to 1 for which lines inside are calculated
%             by flashes of the package; none if it is left out
%
%   Results:
%     T       temperatures along the curve in K, double N-by-1; rows of NaN part
%             lines that do not join
%     P       pressures in Pa, double N-by-1
%     vaporFraction
%             double N-by-1: 1 at a dew point, 0 at a bubble point, NaN where a
%             second liquid appears in the first; those points come last
%     critical
%             temperature and pressure of the first critical point along the
%             curve, double 1-by-2; NaN if it passes none
%     threePhases
%             double M-by-2, temperatures and pressures of the lines inside on
%             which a liquid appears as a third phase, as far as the bubble
%             point in which one goes on; parted by rows of NaN
%     quality cell array with a double K-by-2 for each of the fractions:
%             temperatures and pressures
%
%   Errors:
%     'Invalid number of arguments for capeOpenPhaseEnvelope'
%             There are fewer than have to be given.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Invalid number of values for compositions: must match number of compounds'
%             Z has more or fewer values than the package has compounds.
%     'Expected fractions that are not negative'
%             A value of Z is negative or no number.
%     'A phase envelope needs two or more compounds'
%             Fewer values of Z are above 0.
%     'Expected a positive pressure'
%             Pmin is not a positive scalar.
%     'Expected vapor fractions from 0 to 1'
%             One of fractions is none.
%     'No dew point found at ... Pa'
%             No bubble point either. Try another Pmin.
%
%   Warnings:
%     'The phase envelope is not complete: ...'
%             A line has an open end, flashes fail or find other phases on it, or
%             there is no critical point. What follows says which line, where, and
%             why.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     [T, P, vaporFraction, critical] = capeOpenPhaseEnvelope(handle, X);
%     critical
%     capeOpenPhaseEnvelope(handle, X, 1e5, [0.5 0.9])
%     capeOpenRelease(handle)
%
%   See also capeOpenPxy, capeOpenTxy, capeOpenMultiFlash.
if nargin < 2
    error('Verdanth:error', 'Invalid number of arguments for capeOpenPhaseEnvelope');
end
if nargin < 3
    Pmin = [];
end
if nargin < 4
    fractions = [];
end
Z = checkedMixture(handle, Z);
Pmin = checkedPressure(Pmin);
fractions = checkedFractions(fractions);
if sum(Z > 0) < 2
    error('Verdanth:error', 'A phase envelope needs two or more compounds');
end
quiet = withoutWarnings();
[lines, reasons, inside] = envelopeLines(handle, Z, Pmin);
if isempty(lines)
    error('Verdanth:error', 'No dew point found at %g Pa', Pmin);
end
[T, P, vaporFraction] = lineColumns(lines, 'T', 'P', 'vaporFraction');
critical = vertcat(lines.critical);
critical = [critical(~isnan(critical(:, 1)), :); NaN, NaN];
critical = critical(1, :);
if isnan(critical(1))
    reasons{end + 1} = 'it passes no critical point';
end
quality = qualityLines(handle, Z, linspace(min(T), max(T), 200), critical(1), fractions);
quiet = []; %#ok<NASGU>
warnOfOpenEnds('phase envelope', reasons);
threePhases = zeros(0, 2);
for line = inside
    threePhases = [threePhases; line.T, line.P; NaN, NaN]; %#ok<AGROW>
end
if nargout == 0
    drawEnvelope(lines, critical, inside, quality, mixtureTitle(handle, Z));
    clear('T');
end
end
