function tally = checkFound(tally, severity, what, where, lines, varargin)
%checkFound  Adds a finding that is no number beyond a limit, such as a call that fails, to what a check has found.
%
%   tally = checkFound(tally, severity, what, where, lines)
%   tally = checkFound(tally, severity, what, where, lines, T, P, asked)   for several states, the first of them told
sizes = {[], [], 1};
sizes(1:numel(varargin)) = varargin;
tally.findings(end + 1) = struct('check', tally.check, 'severity', severity, 'what', what, 'where', where, ...
                                 'count', max(1, numel(sizes{1})), 'asked', sizes{3}, 'size', NaN, 'limit', NaN, ...
                                 'lines', {lines(:)}, 'T', sizes{1}(:), 'P', sizes{2}(:));
end
