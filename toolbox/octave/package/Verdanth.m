function Verdanth(varargin)
%Verdanth  The library that the functions capeOpen... call; for scripts there are these.
%
%   Octave shows this text for Verdanth.mex, which lies beside this file and is what it calls.
error('Verdanth:error', 'Verdanth.mex is missing: install the package again');
end
