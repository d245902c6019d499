function varargout = capeOpenPDependentPropList(varargin)
%capeOpenPDependentPropList  List the pressure-dependent properties of pure compounds.
%
%   names = capeOpenPDependentPropList(handle)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     names   n-by-1 cell array of properties, 0-by-0 when there are
%             none. Names that Verdanth does not know are left out.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'GetPDependentPropList failed: ...'
%             The package refused; its own words follow.
%     'Invalid result from GetPDependentPropList: ...'
%             The package answered with something that is no list of names.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     names = capeOpenPDependentPropList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenPDependentProp, capeOpenPropUnit.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(12, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(12, given{:}));
end
end
