function varargout = capeOpenFlashPropList(varargin)
%capeOpenFlashPropList  List what a flash can be specified by.
%
%   names = capeOpenFlashPropList(handle)
%
%   These names may be given to capeOpenFlash and capeOpenMultiFlash as
%   specifications, and to capeOpenMultiFlash as results. Whether a package
%   solves a flash for a certain pair of specifications is seen when it is
%   asked to.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     names   n-by-1 cell array: 'Temperature', 'Pressure', 'vaporFraction',
%             and those of enthalpy, enthalpyF, enthalpyNF, entropy, entropyF,
%             entropyNF, gibbsEnergy, helmholtzEnergy, internalEnergy and
%             volume that the package calculates
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'GetSinglePhasePropList failed: ...'
%             The package refused; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     names = capeOpenFlashPropList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenFlash, capeOpenMultiFlash, capeOpenPropUnit.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(15, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(15, given{:}));
end
end
