function answer = reproduces(finding)
% Whether the lines of a finding show it: what is typed raises an error, or shows a deviation beyond its limit, or a value
% that is none.
deviation = [];
limit = [];
value = [];
numbers = [];
text = strjoin(finding.lines(:).', sprintf('\n'));
try
    evalc(text);
catch problem
    answer = ~isempty(strfind(finding.what, strtok(problem.message, sprintf('\n'))));
    return
end
if ~isempty(deviation)
    answer = any(~(deviation(:) <= limit(:)));
else
    answer = any(~isfinite(value(:))) || any(value(:) < 0) || ~isempty(numbers);
end
end
