function varargout = capeOpenPDependentProp(varargin)
%capeOpenPDependentProp  Pressure-dependent properties of all compounds.
%
%   [v1, v2, ...] = capeOpenPDependentProp(handle, names, P)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     names   names of properties, as capeOpenPDependentPropList gives them: a
%             text with blanks between the names, or a cell array of texts
%     P       pressures in Pa, double N-by-1
%
%   Results:
%     v1, v2  double N-by-n, one for each name in its order: a row for each
%             pressure, a column for each compound
%
%   Names beyond the number of results that are asked for are not calculated.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected string or cell array of strings for property names'
%             The names are something else.
%     'Too many output arguments'
%             More results are asked for than names are given.
%     'Expected column array for pressures'
%             The pressures are not N-by-1.
%     'GetPDependentProperty failed at ...'
%             The package refused at this value; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     T = capeOpenPDependentProp(handle, 'boilingPointTemperature', [1e6; 2e6])
%     capeOpenRelease(handle)
%
%   See also capeOpenPDependentPropList, capeOpenPropUnit, capeOpenTDependentProp.
persistent inOctave
if inOctave % the library refuses there what it can not read
else
    [varargin, inOctave] = libraryArguments(varargin);
end
try
    values = Verdanth(21, nargout, varargin{:});
catch problem
    wanted = nargout;
    values = callAgain(problem, mfilename(), varargin, @(given) Verdanth(21, wanted, given{:}));
end
varargout = values.';
end
