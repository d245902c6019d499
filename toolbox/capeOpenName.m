function varargout = capeOpenName(varargin)
%capeOpenName  Name of an open package.
%
%   name = capeOpenName(handle)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     name    the name of the manager, a colon, and the name of the package;
%             for a stand-alone package its name alone
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     name = capeOpenName(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenCreate, capeOpenHandleList.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(6, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(6, given{:}));
end
end
