function varargout = capeOpenManagerList(varargin)
%capeOpenManagerList  List the property package managers of this machine.
%
%   managers = capeOpenManagerList()
%
%   Lists what is registered on this machine and can give a property package:
%   package managers, each of which holds one or more packages, and
%   stand-alone packages. The registry is searched once; what is installed
%   later is seen after 'clear all' or in a new session.
%
%   Results:
%     managers  n-by-1 cell array of names, 0-by-0 when there is nothing
%
%   Example:
%     managers = capeOpenManagerList()
%
%   See also capeOpenPackageList, capeOpenCreate.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(1, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(1, given{:}));
end
end
