function progressBar(count, total)
%progressBar  A bar that grows in the command window: tells that COUNT more of TOTAL parts are done; 0 begins a new one.
%
%   It only ever writes on, since not every window can take back a line.
persistent done drawn
width = 40;
if count == 0
    done = 0;
    drawn = 0;
    fprintf('|');
end
done = done + count;
wanted = round(width * done / total);
fprintf('%s', repmat('=', 1, wanted - drawn));
drawn = wanted;
if done >= total
    fprintf('|\n');
end
if exist('OCTAVE_VERSION', 'builtin')
    fflush(stdout);
end
end
