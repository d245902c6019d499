function [line, names, least] = usageOf(name)
%usageOf  The syntax line in the help of a function, the names of its arguments there, and how many are needed.
text = fileread(fullfile(fileparts(fileparts(mfilename('fullpath'))), [name, '.m']));
line = regexp(text, ['%   ((?:\S[^\n]*)?' name '\([^\n]*\))'], 'tokens', 'once');
line = line{1};
names = regexp(regexprep(line, '^.*\((.*)\)$', '$1'), '\w+', 'match');
least = numel(names) - any(ismember({'solution', 'failing'}, names)); % these may be left out
end
