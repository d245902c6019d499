function columns = Verdanth(command, varargin)
% Plays the library: a slow batch, whose rows can fail, or be warned of by a package that says nothing of the row.
%
% A row gives its first value; below 0 its flash fails, from 1000 on a warning comes with it, and 500 ends the call. Without
% a second value it fails, too. Whatever is opened has the handle 1.
global seconds_per_row sizes_of_calls frame_of_warnings
if command ~= 25
    columns = {'mol / m3', int32(1)}{1 + (command < 6)};
    return
end
T = varargin{4};
sizes_of_calls(end + 1) = numel(T);
for k = find(T < 0 | T >= 1000 | isnan(varargin{6})).'
    if ~(T(k) >= 1000)
        words = sprintf('CAPE-OPEN: Flash failed at %g, %g: no phase is stable at %g K', T(k), varargin{6}, T(k));
    else
        words = 'CAPE-OPEN: Failed to calculate post-flash Vapor properties: out of range';
    end
    if isempty(frame_of_warnings)
        warning('Verdanth:warning', '%s', words);
    else
        printf(frame_of_warnings, words);
    end
end
if any(T == 500)
    error('Verdanth:error', 'Property not set after post-flash property calculation');
end
T(T < 0) = NaN;
columns = repmat({T}, varargin{8}, 1);
pause(seconds_per_row * numel(T));
end
