function object = subsasgn(object, path, value)
assert(isequal({path.subs}, {'Properties', 'VariableUnits'}) && numel(value) == numel(object.columns));
object.properties.VariableUnits = value;
end
