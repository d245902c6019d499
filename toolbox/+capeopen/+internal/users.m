function users(handle, change, foreign)
%capeopen.internal.users  Counts the objects that hold a package, and closes it behind the last.
%
%   The library has one handle for a package, however often it is opened. FOREIGN tells that the package was open before
%   its first object: then it is someone else's to close. What was counted is lost when all is cleared, and so are the
%   packages.
persistent handles counts keep
if isempty(handles)
    handles = zeros(1, 0, 'int32');
    counts = zeros(1, 0);
    keep = false(1, 0);
end
k = find(handles == handle);
if change > 0 && isempty(k)
    handles(end + 1) = handle;
    counts(end + 1) = 1;
    keep(end + 1) = foreign;
elseif ~isempty(k)
    counts(k) = counts(k) + change;
    if counts(k) == 0
        mine = ~keep(k);
        handles(k) = [];
        counts(k) = [];
        keep(k) = [];
        if mine && any(capeOpenHandleList() == handle)
            capeOpenRelease(handle);
        end
    end
end
end
