function varargout = capeOpenVersion(varargin)
%capeOpenVersion  Version of the library.
%
%   [version, backEnd] = capeOpenVersion()
%
%   Results:
%     version  text with four numbers, such as
%              'Verdanth.DLL version: 2.0.0.4'
%     backEnd  text: where the library runs, as capeOpenBackend tells it, such
%              as 'native', 'isolated: C:\...\VerdanthHost64.exe' or
%              'windows: wine-8.0, /home/me/wine'
%
%   Example:
%     [version, backEnd] = capeOpenVersion()
%
%   See also capeOpenBackend, capeOpenHelp.
results = max(nargout, 1);
if nargout == 2
    results = 1; % the other is none of the library's
end
try
    [varargout{1:results}] = Verdanth(26, varargin{:});
catch problem
    [varargout{1:results}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(26, given{:}));
end
if nargout == 2
    [~, varargout{2}] = backEndOfCalls();
end
end
