function varargout = capeOpenPhaseState(varargin)
%capeOpenPhaseState  State of aggregation of a phase.
%
%   state = capeOpenPhaseState(handle, phase)
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     phase   label of a phase, as capeOpenPhaseList gives it; capital and
%             small letters are alike
%
%   Results:
%     state   the state in the package's words, as a rule 'Vapor', 'Liquid',
%             'Solid' or 'Unknown'
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'Expected string value for phase ID'
%             The phase is not a text.
%     'Undefined phase'
%             The package has no phase of this label.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     state = capeOpenPhaseState(handle, 'Liquid')
%     capeOpenRelease(handle)
%
%   See also capeOpenPhaseList.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(9, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(9, given{:}));
end
end
