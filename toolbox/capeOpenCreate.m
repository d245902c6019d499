function varargout = capeOpenCreate(varargin)
%capeOpenCreate  Open a property package.
%
%   handle = capeOpenCreate(manager, package)
%
%   Opens a package and gives the handle by which all other functions know
%   it. Opening a package that is open already gives the handle that it has.
%   A package stays open until capeOpenRelease, 'clear all' or the end of the
%   session.
%
%   Arguments:
%     manager  name of a package manager or of a stand-alone package, as
%              capeOpenManagerList gives it
%     package  name of a package of that manager, as capeOpenPackageList
%              gives it. For a stand-alone package any text will do; it is
%              not looked at.
%
%   Results:
%     handle   int32 scalar. Its value differs from session to session.
%
%   A package that exists for 32-bit programs only is opened through the
%   program Verdanth6432Relay, with a warning.
%
%   Errors:
%     'Expected string for package manager name'
%              The first argument is not a text.
%     'Expected string for package name'
%              The second argument is not a text.
%     'no such package manager: "..."'
%              Nothing of this name is registered. Capital and small letters
%              count.
%     'package creation failed: ...'
%              The manager could not give the package; its own words follow.
%     'creation of package failed: ...'
%              The stand-alone package is registered, but does not start.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     capeOpenName(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenRelease, capeOpenPackageList, capeOpenHandleList.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(3, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(3, given{:}));
end
end
