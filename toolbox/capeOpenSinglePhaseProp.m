function varargout = capeOpenSinglePhaseProp(varargin)
%capeOpenSinglePhaseProp  Properties of one phase over arrays of conditions.
%
%   [v1, v2, ...] = capeOpenSinglePhaseProp(handle, names, T, P, X, phase, failing)
%
%   Calculates properties of a phase at N conditions. The phase is taken to
%   have the given composition; no phase equilibrium is calculated.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     names   names of properties, as capeOpenSinglePhasePropList gives them:
%             a text with blanks between the names, or a cell array of texts.
%             A name may carry the suffix of a derivative.
%     T       temperatures in K, double N-by-1 or scalar
%     P       pressures in Pa, double N-by-1 or scalar
%     X       compositions, double N-by-n or 1-by-n, a column for each
%             compound: mole fractions, in mass basis mass fractions. They are
%             used as they are, and not normalized. They may be given by
%             names, as capeOpenComposition takes them.
%     phase   label of the phase, as capeOpenPhaseList gives it; capital and
%             small letters are alike
%     failing
%             'NaN' if rows at which the package fails shall hold NaN; left
%             out, one such row is an error for all
%
%   Results:
%     v1, v2  double, one for each name in its order: N-by-1 for a property of
%             the phase, N-by-n for one that every compound has. A property of
%             pairs of compounds is n-by-n and needs N to be 1.
%
%   An argument with one row holds for all conditions. Names beyond the number
%   of results that are asked for are not calculated. All names are calculated
%   in one call of the package for each condition.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected string or cell array of strings for property names'
%             The names are something else.
%     'Too many output arguments'
%             More results are asked for than names are given.
%     'Expected column array for temperatures'
%             T is not N-by-1; a row can be turned by T(:). The same is said
%             of pressures.
%     'Inconsistent number of temperatures and pressures'
%             Both have more than one row, and not the same number.
%     'Invalid number of columns for compositions: must match number of compounds'
%             X has more or fewer columns than the package has compounds.
%     'Inconsistent number of temperatures, pressures and compositions'
%             X has more than one row, and not as many as T or P.
%     'Invalid phase ID'
%             The package has no phase of this label.
%     'Invalid / unsupported 1-phase property: ...'
%             Verdanth does not know the name.
%     'Property calculations cannot be performed at multiple conditions if any property has matrix dimensions'
%             A property of pairs of compounds needs N to be 1.
%     'CalcSinglePhaseProp failed, at ... Pa, at ... K: ...'
%             The package failed at this condition; its own words follow.
%             There are no results, not for other conditions either.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     T = (250:10:300).';
%     [density, enthalpy] = capeOpenSinglePhaseProp(handle, ...
%         {'density', 'enthalpy'}, T, 40e5, X, 'Vapor')
%     capeOpenRelease(handle)
%
%   See also capeOpenSinglePhasePropList, capeOpenTwoPhaseProp, capeOpenMultiFlash, capeOpenPropUnit.
persistent inOctave
if inOctave % the library refuses there what it can not read
else
    [varargin, inOctave] = libraryArguments(varargin);
end
try
    values = Verdanth(22, nargout, varargin{:});
catch problem
    wanted = nargout;
    call = @(given) Verdanth(22, wanted, given{:});
    if numel(varargin) == 7 && strcmpi(varargin{7}, 'NaN')
        [problem, varargin] = deal([], varargin(1:6));
        call = @(given) nanInFailingRows(given, max(wanted, 1), call);
    end
    values = callAgain(problem, mfilename(), varargin, call);
end
varargout = values.';
end
