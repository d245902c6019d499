function tally = checkTally(check)
%checkTally  What a check of a package has asked and found so far: nothing yet.
%
%   FINDINGS is what did not hold, BARS the largest deviation of each kind as a part of its limit. checkCompared and
%   checkFound add to it.
tally = struct('check', check, 'asked', 0, 'skipped', 0, 'bars', struct('what', {}, 'ratio', {}, 'asked', {}), ...
               'findings', struct('check', {}, 'severity', {}, 'what', {}, 'where', {}, 'count', {}, 'asked', {}, ...
                                  'size', {}, 'limit', {}, 'lines', {}, 'T', {}, 'P', {}));
end
