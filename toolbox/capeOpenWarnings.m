function varargout = capeOpenWarnings(varargin)
%capeOpenWarnings  Switch warnings on or off.
%
%   capeOpenWarnings(on)
%
%   Holds for all packages until it is called again or Verdanth is cleared,
%   and starts as on. When off, no warning and no message of a package
%   appears; a row of capeOpenMultiFlash that fails still gets NaN.
%
%   Arguments:
%     on  true or 'on', false or 'off'; of numbers, 0 switches warnings off,
%         and all else switches them on
%
%   Errors:
%     'Invalid number of arguments for Verdanth'
%         One argument is needed.
%     'Expected 'on', 'off', true or false as argument'
%         The argument is another text, or no number.
%
%   Example:
%     capeOpenWarnings('off')
%     capeOpenWarnings('on')
%
%   See also capeOpenMultiFlash, capeOpenBasis.
if nargin == 1
    varargin{1} = isOn(varargin{1});
end
try
    [varargout{1:nargout}] = Verdanth(17, varargin{:});
catch problem
    [varargout{1:nargout}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(17, given{:}));
end
end

function on = isOn(on)
if isa(on, 'string')
    on = char(on);
end
if ischar(on) && any(strcmpi(on, {'on', 'off'}))
    on = strcmpi(on, 'on');
elseif ~(isnumeric(on) || islogical(on)) || isempty(on)
    error('Verdanth:error', 'Expected ''on'', ''off'', true or false as argument');
end
end
