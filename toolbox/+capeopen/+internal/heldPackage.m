function handle = heldPackage(names)
%capeopen.internal.heldPackage  The handle of a package that stays open in the process of a worker.
%
%   Until another is asked for. NAMES are those of its manager and itself in a cell array.
persistent held heldNames
if isempty(held) || ~isequal(heldNames, names) || ~any(capeOpenHandleList() == held.Handle)
    held = capeopen.Package(names{:});
    heldNames = names;
end
handle = held.Handle;
end
