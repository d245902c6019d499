function varargout = capeOpenRelease(varargin)
%capeOpenRelease  Close a property package.
%
%   capeOpenRelease(handle)
%
%   Closes the package and gives back all that it holds. The handle means
%   nothing from then on.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     capeOpenRelease(handle)
%
%   See also capeOpenCreate, capeOpenHandleList.
try
    [varargout{1:nargout}] = Verdanth(4, varargin{:});
catch problem
    [varargout{1:nargout}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(4, given{:}));
end
end
