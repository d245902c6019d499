function varargout = Verdanth(varargin)
% Plays a library whose calls fail, each with the error that `failure` holds.
global failure
error(failure);
end
