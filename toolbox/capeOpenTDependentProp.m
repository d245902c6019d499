function varargout = capeOpenTDependentProp(varargin)
%capeOpenTDependentProp  Temperature-dependent properties of all compounds.
%
%   [v1, v2, ...] = capeOpenTDependentProp(handle, names, T)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     names   names of properties, as capeOpenTDependentPropList gives them: a
%             text with blanks between the names, or a cell array of texts
%     T       temperatures in K, double N-by-1
%
%   Results:
%     v1, v2  double N-by-n, one for each name in its order: a row for each
%             temperature, a column for each compound
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
%     'Expected column array for temperatures'
%             The temperatures are not N-by-1.
%     'GetTDependentProperty failed at ...'
%             The package refused at this value; its own words follow.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     T = (250:50:400).';
%     cp = capeOpenTDependentProp(handle, 'idealGasHeatCapacity', T)
%     capeOpenRelease(handle)
%
%   See also capeOpenTDependentPropList, capeOpenPropUnit, capeOpenPDependentProp.
persistent inOctave
if inOctave % the library refuses there what it can not read
else
    [varargin, inOctave] = libraryArguments(varargin);
end
try
    values = Verdanth(20, nargout, varargin{:});
catch problem
    wanted = nargout;
    values = callAgain(problem, mfilename(), varargin, @(given) Verdanth(20, wanted, given{:}));
end
varargout = values.';
end
