function varargout = capeOpenHelp(varargin)
%capeOpenHelp  Open the help file.
%
%   capeOpenHelp()
%
%   Shows Verdanth.chm in the help viewer of Windows. The file has to lie in
%   the folder above the one that holds Verdanth.mexw64. On Linux there is no
%   such viewer; the same pages are there as HTML files.
%
%   Errors:
%     'Failed to load help file'
%             The viewer or the file is missing, or Windows blocks the file
%             because it was downloaded: open its properties in the Explorer
%             and choose "Unblock".
%
%   Example:
%     try
%         capeOpenHelp()
%     catch problem % for instance where there is no viewer
%         disp(problem.message)
%     end
%
%   See also capeOpenVersion.
try
    [varargout{1:nargout}] = Verdanth(28, varargin{:});
catch problem
    [varargout{1:nargout}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(28, given{:}));
end
end
