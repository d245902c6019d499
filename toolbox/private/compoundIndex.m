function index = compoundIndex(handle, wanted)
%compoundIndex  Where compounds stand in a package's list, by name, formula or CAS number.
%
%   index = compoundIndex(handle, wanted)
%
%   WANTED is a text or a cell array of texts, INDEX a row. Capital and small letters are alike, and of a name the
%   letters and digits alone count, so that n_butane is n-butane: a field of a struct can have no other name.
if ischar(wanted)
    wanted = {wanted};
end
names = capeOpenCompoundList(handle);
index = zeros(1, numel(wanted));
formulas = {};
for k = 1:numel(wanted)
    found = find(strcmpi(names, wanted{k}));
    if isempty(found)
        found = find(strcmpi(lettersOf(names), lettersOf(wanted(k))));
    end
    if isempty(found)
        if isempty(formulas)
            formulas = textsOf(handle, 'chemicalFormula', names);
            numbers = textsOf(handle, 'casRegistryNumber', names);
        end
        found = find(strcmp(formulas, wanted{k}) | strcmp(numbers, wanted{k}));
    end
    if isempty(found)
        error('Verdanth:error', 'The package has no compound "%s"%s', wanted{k}, nearIt(wanted{k}, names));
    elseif numel(found) > 1
        error('Verdanth:error', '"%s" may be %s', wanted{k}, strjoin(names(found).', ' or '));
    end
    index(k) = found;
end
end

function names = lettersOf(names)
names = regexprep(names, '[^A-Za-z0-9]', '');
end

% A constant that is a text; a package need not have it.
function texts = textsOf(handle, constant, names)
texts = repmat({''}, size(names));
try
    known = capeOpenConstant(handle, constant);
    if iscellstr(known) %#ok<ISCLSTR>
        texts = known;
    end
catch
    % it has none
end
end
