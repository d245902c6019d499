function varargout = capeOpenVersion(varargin)
%capeOpenVersion  Version of the library.
%
%   version = capeOpenVersion()
%
%   Results:
%     version  text with four numbers, such as
%              'Verdanth.DLL version: 2.0.0.4'
%
%   Example:
%     version = capeOpenVersion()
%
%   See also capeOpenHelp.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(26, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(26, given{:}));
end
end
