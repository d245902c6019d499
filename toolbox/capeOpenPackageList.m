function varargout = capeOpenPackageList(varargin)
%capeOpenPackageList  List the packages of a package manager.
%
%   packages = capeOpenPackageList(manager)
%
%   Starts the package manager and asks it for the names of its packages.
%
%   Arguments:
%     manager   name of a package manager, as capeOpenManagerList gives it
%
%   Results:
%     packages  n-by-1 cell array of names. For a stand-alone package it
%               holds one text, '(stand-alone)'.
%
%   Errors:
%     'Expected string for argument'
%               The name is not a text.
%     'no such package manager: "..."'
%               Nothing of this name is registered. Capital and small letters
%               count.
%     'creation of package manager failed: ...'
%               The manager is registered, but its component does not start.
%     'failed to get list of packages from ppm: ...'
%               The manager refused; its own words follow.
%
%   Example:
%     packages = capeOpenPackageList('Verdanth Reference Packages')
%
%   See also capeOpenManagerList, capeOpenCreate.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(2, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(2, given{:}));
end
end
