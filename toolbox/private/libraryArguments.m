function [given, inOctave, changed] = libraryArguments(given)
%libraryArguments  What people type as what the library reads: text as char or cell, numbers as full arrays of double.
%
%   [given, inOctave, changed] = libraryArguments(given)
%
%   GIVEN holds the arguments of a function, CHANGED tells whether any became another. What is neither text nor number
%   stays, and the library refuses it. Functions that take arrays of numbers come here before every call unless
%   INOCTAVE: there the library refuses what it can not read, but in MATLAB it would take a sparse array for a full one.
persistent isOctave
if isempty(isOctave)
    isOctave = exist('OCTAVE_VERSION', 'builtin') ~= 0;
end
inOctave = isOctave;
changed = false;
for k = 1:numel(given)
    if isa(given{k}, 'double')
        plain = ~issparse(given{k});
    elseif ischar(given{k})
        plain = size(given{k}, 1) < 2;
    else
        plain = (k == 1 && isnumeric(given{k})) || iscellstr(given{k}); %#ok<ISCLSTR> a handle is an int32
    end
    if ~plain
        [given{k}, other] = converted(given{k}, given{1});
        changed = changed || other;
    end
end
end

function [x, changed] = converted(x, handle)
[x, changed] = capeopen.internal.charsOf(x);
if changed && ~iscell(x)
    return
end
if ischar(x)
    x = cellstr(x); % a name in each row
elseif isnumeric(x)
    x = full(double(x));
elseif isa(x, 'capeopen.Package')
    x = x.Handle;
elseif isstruct(x) && isa(handle, 'int32')
    x = compositionOf(handle, x);
elseif iscell(x) && numel(x) > 1 && any(cellfun(@isnumeric, x(:)))
    x = compositionOf(handle, x);
else
    return
end
changed = true;
end
