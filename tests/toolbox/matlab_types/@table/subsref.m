function value = subsref(object, path)
if strcmp(path(1).subs, 'Properties')
    value = object.properties;
else
    value = object.columns{strcmp(object.properties.VariableNames, path(1).subs)};
end
if numel(path) > 1
    value = subsref(value, path(2:end));
end
end
