function given = sliceOfRows(given, first, last)
%sliceOfRows  The arguments of capeOpenMultiFlash behind its handle, for some of their rows.
for k = [1, 3, 5]
    if size(given{k}, 1) > 1
        given{k} = given{k}(first:last, :);
    end
end
end
