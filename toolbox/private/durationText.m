function text = durationText(seconds)
%durationText  A time in the unit in which it is between 1 and 1000, '' for none.
text = '';
if isfinite(seconds)
    units = {'us', 'ms', 's'};
    k = min(3, max(1, 3 + floor(log10(max(seconds, 1e-9)) / 3)));
    text = sprintf('%.3g %s', seconds * 1000 ^ (3 - k), units{k});
end
end
