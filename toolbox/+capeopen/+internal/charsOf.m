function [x, changed] = charsOf(x)
%capeopen.internal.charsOf  Text of MATLAB's class string as char, or as a cell array of it; in a cell array, too.
%
%   What is neither stays as it is.
changed = isa(x, 'string');
if changed && numel(x) == 1
    x = char(x);
elseif changed
    x = cellstr(x);
elseif iscell(x) && ~iscellstr(x) %#ok<ISCLSTR>
    parts = false(size(x));
    for k = 1:numel(x)
        [x{k}, parts(k)] = capeopen.internal.charsOf(x{k});
    end
    changed = any(parts(:));
end
end
