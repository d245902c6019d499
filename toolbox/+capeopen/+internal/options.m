function [given, options] = options(given, options)
%capeopen.internal.options  Takes pairs of name and value off the end of arguments.
%
%   OPTIONS is a struct with a field for each name that may come, capital and small letters alike, and its default.
names = fieldnames(options);
while numel(given) > 1
    name = given{end - 1};
    if isa(name, 'string') && numel(name) == 1
        name = char(name);
    end
    if ~ischar(name) || ~any(strcmpi(name, names))
        return
    end
    options.(names{strcmpi(name, names)}) = given{end};
    given(end - 1:end) = [];
end
end
