function varargout = capeOpenPropUnit(varargin)
%capeOpenPropUnit  Unit of a property.
%
%   unit = capeOpenPropUnit(name)
%
%   Tells the unit in which values of a property are given and expected, in
%   the basis that capeOpenBasis has chosen. No package need be open.
%
%   Arguments:
%     name  name of a property of any kind, with or without the suffix of a
%           derivative
%
%   Results:
%     unit  text, such as 'J / mol', 1-by-0 for a value without unit
%
%   Errors:
%     'Expected string value for property name'
%           The name is not a text.
%     'unknown / unsupported property'
%           Verdanth does not know the name or the suffix.
%     'Do not use mole number derivatives of extensive property in mass basis'
%           For these the unit has no meaning.
%
%   Example:
%     capeOpenPropUnit('density')
%     capeOpenPropUnit('enthalpy.Dtemperature')
%
%   See also capeOpenBasis, capeOpenSinglePhasePropList.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(19, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(19, given{:}));
end
end
