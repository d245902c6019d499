function varargout = capeOpenCompoundList(varargin)
%capeOpenCompoundList  List the compounds of a package.
%
%   compounds = capeOpenCompoundList(handle)
%
%   The order of this list is the order of the columns of every composition,
%   and of every result that has a value for each compound.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%
%   Results:
%     compounds  n-by-1 cell array of the names by which the package knows its
%                compounds
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Failed to get list of compounds from property package: ...'
%             The package refused; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     compounds = capeOpenCompoundList(handle)
%     capeOpenRelease(handle)
%
%   See also capeOpenConstant, capeOpenPhaseList.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(7, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(7, given{:}));
end
end
