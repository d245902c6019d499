function varargout = capeOpenConstant(varargin)
%capeOpenConstant  A constant of all compounds.
%
%   values = capeOpenConstant(handle, name)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     name    name of one constant, as capeOpenConstantPropList gives it
%
%   Results:
%     values  double 1-by-n, one value for each compound in the order of
%             capeOpenCompoundList, NaN where the package has none. For a
%             constant that is a text, such as casRegistryNumber, an n-by-1
%             cell array of texts.
%
%   Values that are per mole are given per kilogram when the basis is mass;
%   capeOpenPropUnit tells the unit. The molecular weight is in g/mol in
%   either basis.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected a string value for property name'
%             The name is not a text.
%     'GetCompoundConstant failed: ...'
%             The package refused; its own words follow.
%     'Inconsistent return data type from GetCompoundConstant'
%             The package gave numbers for some compounds and texts for
%             others, or values that are neither.
%     'Invalid or unsupported compound constant: ...'
%             In mass basis a constant must be known to Verdanth.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     weights = capeOpenConstant(handle, 'molecularWeight')
%     formulas = capeOpenConstant(handle, 'chemicalFormula')
%     capeOpenRelease(handle)
%
%   See also capeOpenConstantPropList, capeOpenPropUnit, capeOpenBasis.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(16, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(16, given{:}));
end
end
