function varargout = capeOpenPhaseList(varargin)
%capeOpenPhaseList  List the phases that a package can calculate.
%
%   phases = capeOpenPhaseList(handle)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     phases  n-by-1 cell array of phase labels, such as 'Vapor'
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Failed to get list of phases from property package: ...'
%             The package refused; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     phases = capeOpenPhaseList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenPhaseState, capeOpenSinglePhaseProp.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(8, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(8, given{:}));
end
end
