function check_drawn(lines, across, up, heading)
% What is drawn in the current axes: so many lines, the labels of both axes, and how the title begins.
axes = gca();
found = numel(findobj(axes, 'Type', 'line'));
check(found == lines, '%d lines', found);
check(strcmp(get(get(axes, 'XLabel'), 'String'), across), 'across: %s', get(get(axes, 'XLabel'), 'String'));
check(strcmp(get(get(axes, 'YLabel'), 'String'), up), 'up: %s', get(get(axes, 'YLabel'), 'String'));
text = get(get(axes, 'Title'), 'String');
check(strncmp(text, heading, numel(heading)) && ~isempty(strfind(text, '(Natural gas)')), 'title: %s', text);
end
