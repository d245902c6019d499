function varargout = capeOpenSinglePhasePropList(varargin)
%capeOpenSinglePhasePropList  List the properties that a package calculates for a phase.
%
%   names = capeOpenSinglePhasePropList(handle)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     names   n-by-1 cell array of properties, 0-by-0 when there are
%             none. Names that Verdanth does not know are left out.
%
%   Derivatives are listed as far as the package lists them, with a dot and
%   one of Dtemperature, Dpressure, Dmoles and DmolFraction behind the name.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'GetSinglePhasePropList failed: ...'
%             The package refused; its own words follow.
%     'Invalid result from GetSinglePhasePropList: ...'
%             The package answered with something that is no list of names.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     names = capeOpenSinglePhasePropList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenSinglePhaseProp, capeOpenPropUnit.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(13, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(13, given{:}));
end
end
