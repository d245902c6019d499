function [steps, weights] = differenceSteps(oneSided)
%differenceSteps  Where derivatives by differences take their values, in parts of the step h, and the weights of these.
%
%   A row of WEIGHTS for each of the steps h, h / 2 and h / 4; over h. Central, or of second order from one side.
if nargin > 0 && oneSided
    steps = [0, 0.25, 0.5, 1, 2];
    weights = [-1.5, 0, 0, 2, -0.5; -3, 0, 4, -1, 0; -6, 8, -2, 0, 0];
else
    steps = [1, -1, 0.5, -0.5, 0.25, -0.25];
    weights = [0.5, -0.5, 0, 0, 0, 0; 0, 0, 1, -1, 0, 0; 0, 0, 0, 0, 2, -2];
end
end
