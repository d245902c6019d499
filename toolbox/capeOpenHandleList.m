function varargout = capeOpenHandleList(varargin)
%capeOpenHandleList  List the handles of all open packages.
%
%   handles = capeOpenHandleList()
%
%   Results:
%     handles  int32 n-by-1 in no particular order, 0-by-0 when no package is
%              open
%
%   With it packages can be closed whose handles are lost:
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     handles = capeOpenHandleList();
%     for k = 1:numel(handles)
%         disp(capeOpenName(handles(k)))
%         capeOpenRelease(handles(k))
%     end
%
%   See also capeOpenCreate, capeOpenRelease, capeOpenName.
try
    [varargout{1:max(nargout, 1)}] = Verdanth(5, varargin{:});
catch problem
    [varargout{1:max(nargout, 1)}] = callAgain(problem, mfilename(), varargin, @(given) Verdanth(5, given{:}));
end
end
