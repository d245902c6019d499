function [handle, opening, owner, names] = checkedPackage(given)
%checkedPackage  The handle of a package to check, the line that opens it, and what closes it behind the check.
%
%   NAMES are those of its manager and itself in a cell array, {} if they can not be told.
owner = [];
names = {};
if isempty(given)
    error('Verdanth:error', 'Expected a package: its manager and its name, or a handle');
end
named = ischar(given{1}) || isa(given{1}, 'string');
if numel(given) > 1 + named
    error('Verdanth:error', 'Expected an option and its value, not %s', described(given{2 + named}));
end
if named
    names = cellfun(@(name) capeopen.internal.charsOf(name), given, 'UniformOutput', false);
    owner = capeopen.Package(names{:});
    handle = owner.Handle;
    opening = openingLine(names);
    return
end
handle = given{1};
if isa(handle, 'capeopen.Package')
    handle = handle.Handle;
end
name = capeOpenName(handle); % it says what is wrong with a handle
opening = sprintf('handle = int32(%d); %% the package is open', handle);
for manager = reshape(capeOpenManagerList(), 1, [])
    if strcmp(manager{1}, name)
        names = manager;
    elseif strncmp([manager{1}, ':'], name, numel(manager{1}) + 1)
        names = {manager{1}, name(numel(manager{1}) + 2:end)};
    end
end
if ~isempty(names)
    opening = openingLine(names);
end
end

function line = openingLine(names)
names = [names, cell(1, 2 - numel(names))];
names(cellfun(@isempty, names)) = {''};
line = sprintf('handle = capeOpenCreate(%s);', strjoin(cellfun(@quoted, names, 'UniformOutput', false), ', '));
end
