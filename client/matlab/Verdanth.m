function varargout = Verdanth(varargin)
%Verdanth  The library, in a process of its own.
%
%   capeOpenBackend('isolated') puts the folder of this function before the one of the library on MATLAB's path: the
%   functions capeOpen... call it in the place of the library then.
[varargout{1:nargout}] = VerdanthClient(varargin{:});
end
