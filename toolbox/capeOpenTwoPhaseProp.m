function varargout = capeOpenTwoPhaseProp(varargin)
%capeOpenTwoPhaseProp  Properties of a pair of phases over arrays of conditions.
%
%   [v1, v2, ...] = capeOpenTwoPhaseProp(handle, names, T, P, X1, X2, phase1, phase2)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     names   names of properties, as capeOpenTwoPhasePropList gives them: a
%             text with blanks between the names, or a cell array of texts. A
%             name may carry the suffix of a derivative.
%     T       temperatures in K, double N-by-1 or scalar
%     P       pressures in Pa, double N-by-1 or scalar
%     X1, X2  compositions of both phases, double N-by-n or 1-by-n, a column
%             for each compound: mole fractions, in mass basis mass fractions.
%             They may be given by names, as capeOpenComposition takes them.
%     phase1  label of the first phase, as capeOpenPhaseList gives it
%     phase2  label of the second phase
%
%   Results:
%     v1, v2  double, one for each name in its order: N-by-1 for a property of
%             the pair, N-by-n for one that every compound has. A property of
%             pairs of compounds is n-by-n and needs N to be 1. For a
%             derivative by Dmoles or DmolFraction a 1-by-2 cell array with
%             two such arrays, one for the composition of each phase.
%
%   An argument with one row holds for all conditions. Names beyond the number
%   of results that are asked for are not calculated.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Too many output arguments'
%             More results are asked for than names are given.
%     'Inconsistent number of temperatures, pressures and compositions'
%             Two arguments have more than one row, and not the same number.
%     'Invalid phase ID 1'
%             The package has no phase of this label. For the second phase
%             there is a 2 at the end.
%     'Phases for two-phase property cannot be the same'
%             Two different phases are needed.
%     'Invalid / unsupported 2-phase property: ...'
%             Verdanth does not know the name.
%     'CalcTwoPhaseProp failed, at ... Pa, at ... K: ...'
%             The package failed at this condition; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     [phases, fractions, Y] = capeOpenFlash(handle, X, ...
%         'Temperature', 220, 'Pressure', 40e5, 'Unspecified');
%     K = capeOpenTwoPhaseProp(handle, 'kvalue', 220, 40e5, ...
%         Y(1, :), Y(2, :), phases{1}, phases{2})
%     capeOpenRelease(handle)
%
%   See also capeOpenTwoPhasePropList, capeOpenSinglePhaseProp, capeOpenPhaseList.
persistent inOctave
if inOctave % the library refuses there what it can not read
else
    [varargin, inOctave] = libraryArguments(varargin);
end
try
    values = Verdanth(23, nargout, varargin{:});
catch problem
    wanted = nargout;
    values = callAgain(problem, mfilename(), varargin, @(given) Verdanth(23, wanted, given{:}));
end
varargout = values.';
end
