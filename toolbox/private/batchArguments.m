function [given, inOctave] = batchArguments(given)
%batchArguments  The arguments of capeOpenMultiFlash as the library reads them, the type of solution included.
[given, inOctave] = libraryArguments(given);
if numel(given) == 7
    given = [given(1:6), {'Unspecified'}, given(7)];
end
end
