function units = unitsOfText(text)
%unitsOfText  The units of UTF-16 of a text, which has bytes of UTF-8. What is none becomes U+FFFD.
bytes = double(text);
units = zeros(1, numel(bytes), 'uint16'); % there are never more
count = 0;
at = 1;
while at <= numel(bytes)
    [character, at] = characterAt(bytes, at);
    if character < 65536
        units(count + 1) = character;
    else
        units(count + 2) = 56320 + mod(character - 65536, 1024);
        units(count + 1) = 55296 + floor((character - 65536) / 1024);
        count = count + 1;
    end
    count = count + 1;
end
units = units(1:count);
end

% The character that begins there, and the place behind it, or behind the longest beginning of one.
function [character, at] = characterAt(bytes, at)
first = bytes(at);
at = at + 1;
character = first;
if first < 128
    return
end
replacement = 65533;
following = (first >= 194) + (first >= 224) + (first >= 240);
if following == 0 || first > 244
    character = replacement;
    return
end
% The range of the second byte leaves out what is longer than need be, surrogates, and what lies beyond U+10FFFF.
low = 128 + 32 * (first == 224) + 16 * (first == 240);
high = 191 - 32 * (first == 237) - 48 * (first == 244);
character = mod(first, 2^(6 - following));
for k = 1:following
    if at > numel(bytes) || bytes(at) < low || bytes(at) > high
        character = replacement;
        return
    end
    character = 64 * character + mod(bytes(at), 64);
    low = 128;
    high = 191;
    at = at + 1;
end
end
