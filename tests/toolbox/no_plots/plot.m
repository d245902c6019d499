function plot(varargin)
% Takes the place of the plotting function where there is no display.
end
