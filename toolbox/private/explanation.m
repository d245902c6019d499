function text = explanation(message, name, given)
%explanation  What a function knows better than the library about a failed call: lines to be put behind its message.
%
%   MESSAGE is the library's, NAME the function's, GIVEN holds its arguments. The text is empty, or begins with a line
%   end.
rules = {
    '^Invalid number of arguments', @countOfArguments
    '^Invalid number of output arguments', @countOfResults
    '^Invalid property package handle$', @wrongHandle
    '^(Invalid phase ID|Undefined phase)', @unknownPhase
    '^Invalid number of (columns|values) for compositions', @widthOfComposition
    '^Expected column', @notAColumn
    '^Inconsistent number', @countsOfRows
    '^(Expected |Invalid number of values for value)', @wrongClasses
    '^Too many output arguments$', @moreResultsThanNames
    '^Property calculations cannot', @namesOfMatrices
    '^(Calc\w+|GetTDependentProperty|GetPDependentProperty) failed', @unusableNumbers
    '( property: |^Not a valid flash|Get\w+ failed|Calc\w+Prop failed|^unknown)', @unknownNames
    '^no such package manager', @unknownManager
    '^package creation failed', @unknownPackage
    };
persistent usages % a package may fail at many points, one after the other
if ~isfield(usages, name)
    [usages.(name).line, usages.(name).labels, usages.(name).least] = usageOf(name);
end
call.usage = usages.(name).line;
call.labels = usages.(name).labels;
call.least = usages.(name).least;
call.message = message;
call.name = name;
call.given = given;
lines = {};
for k = find(~cellfun('isempty', regexp(message, rules(:, 1).', 'once')))
    lines = rules{k, 2}(call);
    if ischar(lines)
        lines = {lines};
    end
    lines = lines(~cellfun('isempty', lines));
    if ~isempty(lines)
        break % the first that knows something
    end
end
text = sprintf('\n  %s', lines{:});
if isempty(lines)
    text = '';
end
end

function lines = countOfArguments(call)
most = numel(call.labels);
if most == call.least
    count = sprintf('%d', most);
else
    count = sprintf('%d or %d', call.least, most);
end
came = numel(call.given);
lines = {sprintf('%s takes %s %s, and %d came:', call.name, count, plural(most, 'argument'), came), call.usage};
end

function lines = countOfResults(call)
lines = {sprintf('More results are asked for than %s has:', call.name), call.usage};
end

function text = wrongHandle(call)
handle = call.given{1};
if ~isa(handle, 'int32')
    text = sprintf('What came as the handle is %s; it is the int32 that capeOpenCreate gave', described(handle));
elseif numel(handle) ~= 1
    text = sprintf('%d handles came; one is needed', numel(handle));
else
    text = sprintf('No package is open with the handle %d: it was released, or Verdanth was cleared', handle);
end
end

function lines = unknownPhase(call)
labels = capeOpenPhaseList(call.given{1});
which = find(strncmp(call.labels, 'phase', 5));
if ~isempty(regexp(call.message, '\d$', 'once'))
    which = which(str2double(call.message(end)));
end
lines = sprintf('The package has no phase ''%s''; there are %s', textOf(call.given{which}), strjoin(labels(:).', ', '));
end

function text = widthOfComposition(call)
compounds = numel(capeOpenCompoundList(call.given{1}));
for k = find(ismember(call.labels, {'Z', 'X', 'X1', 'X2'}))
    Z = call.given{k};
    width = size(Z, 2);
    unit = 'column';
    if strcmp(call.name, 'capeOpenFlash')
        width = numel(Z);
        unit = 'value';
    end
    if width ~= compounds
        text = sprintf('%s: %d %s came, %d %s needed, one for each compound', call.labels{k}, width, ...
                       plural(width, unit), compounds, isOrAre(compounds));
        if size(Z, 1) == compounds
            text = [text, '; is it transposed?']; %#ok<AGROW>
        end
        return
    end
end
end

function lines = notAColumn(call)
lines = {};
for k = numbersOf(call)
    x = call.given{k};
    if isnumeric(x) && size(x, 2) ~= 1 && isempty(regexp(call.labels{k}, '^[ZX]', 'once'))
        lines{end + 1} = sprintf('%s is %d-by-%d; a column is made by (:)', call.labels{k}, size(x)); %#ok<AGROW>
    end
end
end

function text = countsOfRows(call)
counts = arrayfun(@(k) sprintf('%s has %d', call.labels{k}, size(call.given{k}, 1)), numbersOf(call), ...
                  'UniformOutput', false);
text = ['Rows: ', strjoin(counts, ', '), '; each has as many as the others, or one'];
end

% The first argument of a class that can not be, as the library finds them from the left.
function text = wrongClasses(call)
text = '';
numbers = numbersOf(call);
for k = 1:min(numel(call.given), numel(call.labels))
    x = call.given{k};
    if k < numel(call.given) && strncmp(call.labels{k}, 'name', 4) && isnumeric(x) && ischar(call.given{k + 1})
        text = sprintf('A number stands where a name belongs; the name comes first: ''%s'', %s', call.given{k + 1}, ...
                       textOf(x));
        return
    elseif ismember(k, numbers)
        if ~isa(x, 'double') || ~isreal(x)
            text = sprintf('%s is %s; numbers are needed', call.labels{k}, described(x));
            return
        end
    elseif ~ischar(x) && ~iscellstr(x) && ~strcmp(call.labels{k}, 'handle') %#ok<ISCLSTR>
        text = sprintf('%s is %s; text is needed', call.labels{k}, described(x));
        return
    end
end
end

function text = moreResultsThanNames(call)
count = numel(namesIn(call, 'names'));
if count == 0
    text = 'The list of names is empty';
else
    text = sprintf('One result for each name: there %s %d %s', isOrAre(count), count, plural(count, 'name'));
end
end

function lines = unknownNames(call)
wanted = namesIn(call, 'name\w*');
list = listFor(call.name);
known = {};
if ~isempty(list)
    known = feval(list, call.given{1});
else
    for handle = capeOpenHandleList().'
        known = [known; capeOpenConstantPropList(handle); capeOpenTDependentPropList(handle); ...
                 capeOpenSinglePhasePropList(handle); capeOpenTwoPhasePropList(handle)]; %#ok<AGROW>
    end
    known = unique(known);
end
lines = {};
for k = find(~cellfun(@(name) any(strcmpi(name, known)), wanted))
    near = nearNames(wanted{k}, known);
    if ~isempty(near)
        lines{end + 1} = sprintf('''%s'': near it there %s %s', wanted{k}, isOrAre(numel(near)), ...
                                 strjoin(near, ', ')); %#ok<AGROW>
    elseif ~isempty(list)
        lines{end + 1} = sprintf('The package has no ''%s''; %s tells what it has', wanted{k}, list); %#ok<AGROW>
    end
end
end

function text = namesOfMatrices(call)
matrices = {};
command = 22 + strcmp(call.name, 'capeOpenTwoPhaseProp');
for name = namesIn(call, 'names')
    one = call.given;
    one{2} = name{1};
    try
        Verdanth(command, 1, one{:}); % this is refused before anything is calculated
    catch problem
        if strncmp(problem.message, 'Property calculations cannot', 28)
            matrices(end + 1) = name; %#ok<AGROW>
        end
    end
end
text = sprintf('A value for each pair of compounds: %s', strjoin(matrices, ', '));
end

function lines = unusableNumbers(call)
lines = cell(1, 0);
for k = numbersOf(call)
    lines{end + 1} = unusableNumber(call, k); %#ok<AGROW>
end
end

function text = unknownManager(call)
managers = capeOpenManagerList();
near = nearNames(call.given{1}, managers);
if isempty(near)
    near = managers;
end
text = '';
if ~isempty(near)
    text = sprintf('There %s "%s"', isOrAre(numel(near)), strjoin(near(:).', '", "'));
end
end

function text = unknownPackage(call)
packages = capeOpenPackageList(call.given{1});
text = '';
if ~any(strcmpi(packages, call.given{2}))
    near = nearNames(call.given{2}, packages);
    if isempty(near)
        near = packages;
    end
    text = sprintf('"%s" has "%s"', call.given{1}, strjoin(near(:).', '", "'));
end
end

% Which arguments are numbers.
function which = numbersOf(call)
which = find(~cellfun('isempty', regexp(call.labels, '^([TPZX]|X\d|values?\d)$', 'once')));
which = which(which <= numel(call.given));
end

% The names in the arguments that the usage calls so.
function names = namesIn(call, label)
which = find(~cellfun('isempty', regexp(call.labels, ['^' label '$'], 'once')));
names = cell(1, 0);
for k = which(which <= numel(call.given))
    names = [names, capeopen.internal.namesOf(call.given{k})]; %#ok<AGROW>
end
end

% The function that lists the names there are for another; '' if none does.
function list = listFor(name)
lists = {'capeOpenSinglePhaseProp', 'capeOpenSinglePhasePropList'
         'capeOpenTwoPhaseProp', 'capeOpenTwoPhasePropList'
         'capeOpenTDependentProp', 'capeOpenTDependentPropList'
         'capeOpenPDependentProp', 'capeOpenPDependentPropList'
         'capeOpenConstant', 'capeOpenConstantPropList'
         'capeOpenFlash', 'capeOpenFlashPropList'
         'capeOpenMultiFlash', 'capeOpenFlashPropList'};
list = [lists{strcmp(lists(:, 1), name), 2}];
end
