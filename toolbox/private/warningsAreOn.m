function answer = warningsAreOn(handle, given)
%warningsAreOn  Whether the library warns; GIVEN are arguments of capeOpenMultiFlash behind the handle.
%
%   The library does not tell, but a flash without a temperature fails.
restore = capeopen.internal.capturedWarnings(); %#ok<NASGU>
given = sliceOfRows(given, 1, 1);
[~, notes] = flashOnce(handle, [given(1), {'Temperature', NaN, 'Pressure', NaN}, given(6), {'Temperature'}], 1);
answer = ~isempty(notes);
end
