function nameAxes(across, up, heading, names)
%nameAxes  Titles of a diagram; the legend stands beside it, where it covers nothing.
xlabel(across);
ylabel(up);
title(heading, 'Interpreter', 'none', 'FontWeight', 'normal', 'FontSize', 9);
legend(names, 'Location', 'eastoutside');
end
