function result = tableOf(names, columns, units)
%capeopen.internal.tableOf  Columns with names and units: a table where there are tables, otherwise a struct.
%
%   The struct has the columns as fields, and Properties with VariableNames and VariableUnits, as a table has.
if exist('table', 'class')
    result = table(columns{:}, 'VariableNames', names);
    result.Properties.VariableUnits = units;
else
    result = struct();
    for k = 1:numel(names)
        result.(names{k}) = columns{k};
    end
    result.Properties = struct('VariableNames', {names}, 'VariableUnits', {units});
end
end
