function varargout = Verdanth(varargin)
% The library, called VerdanthItself here, with the fault that `fault` holds: the command and the property (empty for a
% flash) whose results go through its function alter(result, arguments).
global fault
if ~isempty(fault) && fault.command == -varargin{1} % solves anything, where the library refuses
    varargin(cellfun(@(value) isequal(value, -10), varargin)) = {250};
    varargin(cellfun(@(value) isequal(value, -1e5), varargin)) = {1e5};
    varargin(cellfun(@(value) isequal(value, 2), varargin)) = {0.5};
end
[varargout{1:nargout}] = VerdanthItself(varargin{:});
if isempty(fault) || varargin{1} ~= fault.command
    return
end
switch varargin{1}
    case 16
        if strcmpi(varargin{3}, fault.property)
            varargout{1} = fault.alter(varargout{1}, varargin);
        end
    case {20, 21, 22, 23}
        varargout{1} = altered(fault, varargout{1}, varargin{4}, varargin);
    case 24
        varargout = fault.alter(varargout, varargin);
    case 25
        varargout{1} = altered(fault, varargout{1}, varargin{end}, varargin);
end
end

function values = altered(fault, values, names, given)
if ischar(names)
    names = strsplit(strtrim(names));
end
for k = 1:min(numel(values), numel(names))
    if strcmpi(names{k}, fault.property)
        values{k} = fault.alter(values{k}, given);
    end
end
end
