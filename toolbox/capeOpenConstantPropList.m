function varargout = capeOpenConstantPropList(varargin)
%capeOpenConstantPropList  List the compound constants that a package knows.
%
%   names = capeOpenConstantPropList(handle)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     names   n-by-1 cell array of constants, 0-by-0 when there are
%             none. Names that Verdanth does not know are left out.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'GetConstPropList failed: ...'
%             The package refused; its own words follow.
%     'Invalid result from GetConstPropList: ...'
%             The package answered with something that is no list of names.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     names = capeOpenConstantPropList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenConstant, capeOpenPropUnit.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(10, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(10, given{:}));
end
end
