function v = put(v, k, value)
% An array, or a cell array, with one of its elements replaced.
if iscell(v)
    v{k} = value;
else
    v(k) = value;
end
end
