function varargout = capeOpenTwoPhasePropList(varargin)
%capeOpenTwoPhasePropList  List the properties that a package calculates for two phases.
%
%   names = capeOpenTwoPhasePropList(handle)
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
%     'GetTwoPhasePropList failed: ...'
%             The package refused; its own words follow.
%     'Invalid result from GetTwoPhasePropList: ...'
%             The package answered with something that is no list of names.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     names = capeOpenTwoPhasePropList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenTwoPhaseProp, capeOpenPropUnit.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(14, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(14, given{:}));
end
end
