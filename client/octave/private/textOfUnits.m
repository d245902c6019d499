function text = textOfUnits(units)
%textOfUnits  Units of UTF-16 as a text with bytes of UTF-8. A surrogate without its partner becomes U+FFFD.
units = double(reshape(units, 1, []));
if all(units < 128)
    text = char(units);
    return
end
isHigh = units >= 55296 & units < 56320;
isLow = units >= 56320 & units < 57344;
isFirst = isHigh & [isLow(2:end), false];
isSecond = [false, isFirst(1:end - 1)];
units((isHigh & ~isFirst) | (isLow & ~isSecond)) = 65533;
first = find(isFirst);
units(first) = 65536 + 1024 * (units(first) - 55296) + units(first + 1) - 56320;
units = units(~isSecond);
% A column for each character, with a byte below the other; -1 for none.
bytes = -ones(4, numel(units));
starts = [0 192 224 240];
lengths = 1 + (units >= 128) + (units >= 2048) + (units >= 65536);
for following = 0:3
    these = lengths == following + 1;
    bytes(1, these) = starts(following + 1) + floor(units(these) / 64^following);
    for k = 1:following
        bytes(1 + k, these) = 128 + mod(floor(units(these) / 64^(following - k)), 64);
    end
end
text = char(bytes(bytes >= 0).');
end
