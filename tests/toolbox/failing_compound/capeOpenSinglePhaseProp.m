function varargout = capeOpenSinglePhaseProp(varargin)
% The function of the toolbox, but it fails with less than one part in a thousand of what is not compound `failing`.
global failing
if any(varargin{5}(:, failing) > 0.999)
    error('Verdanth:error', 'Nothing is known of pure compounds');
end
here = fileparts(mfilename('fullpath'));
rmpath(here);
back = onCleanup(@() addpath(here));
[varargout{1:max(nargout, 1)}] = capeOpenSinglePhaseProp(varargin{:});
end
