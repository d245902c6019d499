function result = tableOfFlash(flash, units, unitOfFractions)
%capeopen.internal.tableOfFlash  The result of a flash with a row for each phase; see tableOf.
%
%   UNITS is a struct with the unit of each field of FLASH that has one.
rows = ones(numel(flash.phases), 1);
names = {'phase', 'fraction', 'composition', 'T', 'P'};
columns = {flash.phases(:), flash.fractions(:), flash.compositions, flash.T * rows, flash.P * rows};
unit = {'', unitOfFractions, unitOfFractions, units.T, units.P};
details = fieldnames(flash);
for k = 6:numel(details)
    names{k} = details{k};
    columns{k} = flash.(details{k})(:);
    unit{k} = units.(details{k});
end
result = capeopen.internal.tableOf(names, columns, unit);
end
