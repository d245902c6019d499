function varargout = capeOpenMultiFlash(varargin)
% The function of the toolbox, but its flash fails at pressures between the two in `failing`.
global failing
here = fileparts(mfilename('fullpath'));
rmpath(here);
back = onCleanup(@() addpath(here));
[varargout{1:max(nargout, 1)}] = capeOpenMultiFlash(varargin{:});
which = find(strcmp(varargin([3, 5]), 'Pressure'));
if isempty(which)
    return
end
P = varargin{2 + 2 * which} .* ones(size(varargout{1}));
for k = 1:numel(varargout)
    varargout{k}(P > failing(1) & P < failing(2)) = NaN;
end
end
