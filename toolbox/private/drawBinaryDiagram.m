function drawBinaryDiagram(x, level, y, compounds, axisTitle, heading, corner)
%drawBinaryDiagram  Boiling and dew line of two compounds in the current axes.
plot(x, level, 'b-', y, level, 'r-');
xlim([0, 1]);
xlabel(['fraction of ', compounds{1}]);
ylabel(axisTitle);
title(heading);
legend({'boiling liquid', 'saturated vapor'}, 'Location', corner);
end
