function verb = isOrAre(count)
%isOrAre  The verb that stands before a number, or a list of that length.
if count == 1
    verb = 'is';
else
    verb = 'are';
end
end
