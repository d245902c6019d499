function varargout = capeOpenHelp(varargin)
%capeOpenHelp  Open the help file.
%
%   capeOpenHelp()
%
%   Shows Verdanth.chm in the help viewer of Windows. The file has to lie in
%   the folder above the one that holds Verdanth.mexw64. Where that can not be,
%   as on Linux, the same pages are shown in the browser, and where there is no
%   screen for one, it is told where they lie.
%
%   Errors:
%     'Failed to load help file'
%             The viewer or the file is missing, or Windows blocks the file
%             because it was downloaded: open its properties in the Explorer
%             and choose "Unblock". There are no pages for a browser, either.
%
%   Example:
%     try
%         capeOpenHelp()
%     catch problem % for instance where there is no guide
%         disp(problem.message)
%     end
%
%   See also capeOpenVersion.
try
    [varargout{1:nargout}] = Verdanth(28, varargin{:});
catch problem
    page = firstPage();
    if nargin > 0 || nargout > 0 || isempty(page)
        [varargout{1:nargout}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(28, given{:}));
    end
    fprintf('The guide: %s\n', page);
    if ispc() || ~isempty([getenv('DISPLAY'), getenv('WAYLAND_DISPLAY')])
        web(['file://', page]);
    end
end
end

% Where the guide begins: as MATLAB finds it, in an Octave package, beside an installed toolbox, where it was built.
function page = firstPage()
here = fileparts(mfilename('fullpath'));
above = fileparts(here);
folders = {fullfile(here, 'html'), fullfile(here, 'doc'), fullfile(above, 'doc'), ...
           fullfile(above, 'build', 'linux', 'guide', 'html')};
page = '';
for k = 1:numel(folders)
    if exist(fullfile(folders{k}, 'index.html'), 'file')
        page = fullfile(folders{k}, 'index.html');
        return
    end
end
end
