function varargout = Verdanth(varargin)
% The library, called VerdanthItself here, with the fault that `fault` holds: the command and the property (empty for a
% flash) whose results go through its function alter(result, arguments). With a field `after_failure` they do so once a
% call has failed, and with `refusal` these are the words of all that the command refuses. A command below zero stands for
% one that refuses nothing. Workers, which are other processes, have it from the environment.
global fault
if isempty(fault) && ~isempty(getenv('VERDANTH_TEST_FAULT'))
    fault = eval(getenv('VERDANTH_TEST_FAULT'));
end
if isempty(fault)
    [varargout{1:nargout}] = VerdanthItself(varargin{:});
    return
end
if fault.command == -varargin{1}
    varargin = put_right(varargin);
end
try
    [varargout{1:nargout}] = VerdanthItself(varargin{:});
catch problem
    fault.failed = true;
    if isfield(fault, 'refusal') && varargin{1} == fault.command
        error('Verdanth:error', '%s', fault.refusal);
    end
    rethrow(problem);
end
if varargin{1} ~= fault.command || (isfield(fault, 'after_failure') && ~isfield(fault, 'failed')) || ~isfield(fault, 'alter')
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

% Arguments that can be calculated with, in the place of those that can not.
function given = put_right(given)
names = {'noSuchConstant', 'criticalTemperature'; 'noSuchProperty', 'vaporPressure'; 'noSuchSolution', 'Unspecified'};
if given{1} == 21
    names{2, 2} = 'boilingPointTemperature';
end
for k = 3:numel(given)
    x = given{k};
    if ischar(x) && any(strcmp(names(:, 1), x))
        given{k} = names{strcmp(names(:, 1), x), 2};
    elseif isa(x, 'double') && isscalar(x) && (~(x > 0) || isinf(x))
        given{k} = 250;
    elseif isequal(x, 2)
        given{k} = 0.5;
    elseif isequal(x, 1e15)
        given{k} = -1000;
    elseif isa(x, 'double') && ~isscalar(x) && (~all(x >= 0) || ~any(x))
        given{k} = ones(size(x)) / numel(x);
    end
end
if given{1} == 24 && strcmp(given{4}, given{6})
    given(6:7) = {'Pressure', 1e5};
elseif given{1} == 24 && strcmp(given{4}, 'volume')
    given{5} = 6e-4;
end
end
