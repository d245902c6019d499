function varargout = capeOpenMultiFlash(varargin)
%capeOpenMultiFlash  Phase equilibria over arrays of conditions.
%
%   [r1, r2, ...] = capeOpenMultiFlash(handle, Z, name1, values1, name2, values2, solution, names)
%
%   Calculates N flashes and reports temperature, pressure, vapor fraction and
%   overall properties of each. A flash that fails does not stop the others.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     Z       overall compositions, double N-by-n or 1-by-n, a column for each
%             compound: mole fractions, in mass basis mass fractions. They may
%             be given by names, as capeOpenComposition takes them.
%     name1   first specification: a name that capeOpenFlashPropList gives
%     values1
%             its values, double N-by-1 or scalar
%     name2   second specification
%     values2
%             its values, double N-by-1 or scalar
%     solution
%             which of several solutions is wanted: 'Unspecified', 'Normal',
%             'Retrograde' or another word that the package knows. It may be
%             left out.
%     names   what to report: names that capeOpenFlashPropList gives, as a
%             text with blanks between the names, or a cell array of texts
%
%   Results:
%     r1, r2  double N-by-1, one for each name in its order. A row whose flash
%             failed holds NaN. The value of a property is the sum over the
%             phases, each with its fraction.
%     texts   N-by-1 cell array, asked for by one output more than there are
%             names: why a row failed, or what else it was warned of, '' where
%             all is well. Then no warning is given.
%
%   An argument with one row holds for all flashes. Names beyond the number of
%   results that are asked for are not calculated.
%
%   Ctrl-C stops it within about a quarter of a second; capeOpenLastResults
%   gives the rows that were done until then. What takes longer than two
%   seconds shows how far it is, but not where nobody watches, as in a
%   job of a queue.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Too many output arguments'
%             More results are asked for than names are given.
%     'Inconsistent number of rows for compositions and constraint values'
%             Two arguments have more than one row, and not the same number.
%     'Expected column vector for value 1'
%             The values are not N-by-1. The same is said of value 2.
%     'Not a valid flash property: ... (use capeOpenFlashPropList for list of valid properties)'
%             A flash can not be specified by this property.
%     'Invalid / unsupported flash property: ...'
%             This can not be reported.
%
%   Warnings:
%     'CAPE-OPEN: Flash failed at ..., ...: ...'
%             A single flash, with these two values, failed; the package's
%             words follow.
%     'CAPE-OPEN: Flash failed in ... of ... rows, which specify ... and ...: ...'
%             One warning for all rows. Each line behind it has rows and the
%             package's words; those that differ in numbers only are counted
%             together.
%     'CAPE-OPEN: Failed to calculate post-flash ... properties: ...'
%             The flash was found, but not the properties of this phase. What
%             the row reports of these properties is not to be trusted.
%     'CAPE-OPEN: Other warnings of the package, ... in ... rows: ...'
%             The same, and whatever else the package told, for all rows. A line
%             names the rows among which they are.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     T = (180:10:300).';
%     [fraction, enthalpy] = capeOpenMultiFlash(handle, X, ...
%         'Temperature', T, 'Pressure', 40e5, 'Unspecified', ...
%         'vaporFraction enthalpy')
%     capeOpenRelease(handle)
%
%   See also capeOpenFlash, capeOpenLastResults, capeOpenFlashPropList, capeOpenWarnings, capeOpenBasis.
persistent inOctave
if nargin == 7 || ~any(inOctave) % else the library refuses what it can not read
    [varargin, inOctave] = batchArguments(varargin);
end
if max(cellfun('size', varargin, 1)) < 2 % one flash, where each further call would be felt
    try
        values = Verdanth(25, varargin{1:7}, nargout, varargin{8:end});
        varargout = values.';
        return
    catch
        % as a batch it may be one, and if not, it is said below why
    end
end
if inOctave
    varargin = batchArguments(varargin);
end
try
    if numel(varargin) ~= 8
        values = Verdanth(25, varargin{1:min(end, 7)}, nargout, varargin{8:end}); % raises an error
        varargout = values.';
        return
    end
    given = varargin(2:8);
    varargout = batchResults(given, nargout, @(outputs, exact) flashRows(varargin{1}, given, outputs, exact));
catch problem
    callAgain(problem, mfilename(), varargin, []);
end
end
