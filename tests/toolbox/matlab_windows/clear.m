function clear(varargin)
% Notes what MATLAB is to forget, and which one it calls by the first of the names at that time.
global cleared called_then
cleared = varargin;
called_then = which(varargin{1});
end
