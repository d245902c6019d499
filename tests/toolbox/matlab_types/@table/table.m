function object = table(varargin)
% Stands in Octave for MATLAB's class of this name: columns of as many rows each, with names and units.
names = varargin{end};
columns = varargin(1:end - 2);
assert(strcmp(varargin{end - 1}, 'VariableNames') && numel(names) == numel(columns));
assert(numel(unique(cellfun(@rows, columns))) == 1);
properties = struct('VariableNames', {names}, 'VariableUnits', {{}});
object = class(struct('columns', {columns}, 'properties', properties), 'table');
end
