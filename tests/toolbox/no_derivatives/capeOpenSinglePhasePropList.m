function names = capeOpenSinglePhasePropList(handle)
% Plays a package that calculates no derivatives by amounts.
names = Verdanth(13, handle);
names = names(cellfun(@isempty, strfind(names, '.Dmoles')));
end
