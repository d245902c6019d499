function varargout = capeOpenBasis(varargin)
%capeOpenBasis  Choose mole or mass basis.
%
%   capeOpenBasis(basis)
%
%   Holds for all packages until it is called again or Verdanth is cleared,
%   and starts as mole. In mole basis compositions and phase fractions are
%   mole fractions, and values are per mole. In mass basis they are mass
%   fractions, and values are per kilogram. That is so for what is given as
%   well as for results.
%
%   Arguments:
%     basis  'mole' or 'mass'; capital and small letters are alike
%
%   Errors:
%     'Expected string value 'mole' or 'mass' as argument'
%            The argument is something else. The basis stays as it was.
%
%   Example:
%     capeOpenBasis('mass')
%     capeOpenPropUnit('enthalpy')
%     capeOpenBasis('mole')
%     capeOpenPropUnit('enthalpy')
%
%   See also capeOpenPropUnit, capeOpenWarnings.
try
    [varargout{1:nargout}] = Verdanth(18, varargin{:});
catch problem
    [varargout{1:nargout}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(18, given{:}));
end
end
