function varargout = capeOpenWarnings(varargin)
%capeOpenWarnings  Switch warnings on or off.
%
%   capeOpenWarnings(on)
%
%   Holds for all packages until it is called again or Verdanth is cleared,
%   and starts as on. When off, no warning and no message of a package
%   appears; a row of capeOpenMultiFlash that fails still gets NaN.
%
%   Arguments:
%     on  number or logical; 0 and false switch warnings off, all else
%         switches them on
%
%   Errors:
%     'Invalid number of arguments for Verdanth'
%         One argument is needed.
%
%   Example:
%     capeOpenWarnings(false)
%     capeOpenWarnings(true)
%
%   See also capeOpenMultiFlash, capeOpenBasis.
[varargout{1:nargout}] = Verdanth(17, varargin{:});
end
