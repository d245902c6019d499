function name = packageName(handle)
%packageName  Name of an open package without that of its manager.
name = capeOpenName(handle);
name = name(max([0, strfind(name, ':')]) + 1:end);
end
