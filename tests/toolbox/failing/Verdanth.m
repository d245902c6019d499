function varargout = Verdanth(varargin)
% Plays a library that can not be called.
error('Other:kind', 'not of the library');
end
