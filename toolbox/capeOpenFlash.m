function varargout = capeOpenFlash(varargin)
%capeOpenFlash  One phase equilibrium.
%
%   [phases, fractions, X, T, P] = capeOpenFlash(handle, Z, name1, value1, name2, value2, solution)
%
%   Has the package split a mixture into the phases that are in equilibrium.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     Z       overall composition, double with one value for each compound:
%             mole fractions, in mass basis mass fractions. It is used as it
%             is, and not normalized. It may be given by names, as
%             capeOpenComposition takes them.
%     name1   first specification: a name that capeOpenFlashPropList gives;
%             capital and small letters are alike
%     value1  its value, double scalar, in the unit that capeOpenPropUnit tells
%     name2   second specification
%     value2  its value
%     solution
%             which of several solutions is wanted: 'Unspecified', 'Normal',
%             'Retrograde' or another word that the package knows. It may be
%             left out.
%
%   Results:
%     phases  k-by-1 cell array with the labels of the phases that are present
%     fractions
%             double k-by-1, what part of the whole each phase is: of the
%             moles, in mass basis of the mass
%     X       double k-by-n, the composition of each phase
%     T       temperature in K
%     P       pressure in Pa
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Invalid number of values for compositions: must match number of compounds'
%             Z has more or fewer values than the package has compounds.
%     'Invalid number of values for value 1: scalar expected'
%             A value must be one number. The same is said of value 2.
%     'Expected string value for property 1'
%             A specification must be a text. The same is said of property 2.
%     'Not a valid flash property: ... (use capeOpenFlashPropList for list of valid properties)'
%             A flash can not be specified by this property.
%     'Package does not expose vapor phase'
%             vaporFraction needs a package that has a vapor.
%     'Expected string value for solution type'
%             The last argument is not a text.
%     'CalcEquilibrium failed: ...'
%             The package did not find a solution, or does not solve this kind
%             of flash; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     [phases, fractions, compositions] = capeOpenFlash(handle, X, ...
%         'Temperature', 220, 'Pressure', 40e5, 'Unspecified')
%     capeOpenRelease(handle)
%
%   See also capeOpenMultiFlash, capeOpenFlashPropList, capeOpenBasis.
persistent inOctave
if inOctave % the library refuses there what it can not read
else
    [varargin, inOctave] = libraryArguments(varargin);
end
if nargin == 6
    varargin{7} = 'Unspecified';
end
try
    [varargout{1:max(nargout, 5)}] = Verdanth(24, varargin{:}); % it gives no fewer than five
catch problem
    [varargout{1:max(nargout, 5)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(24, given{:}));
end
end
