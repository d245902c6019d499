function [factor, dimension, offset, parts] = unitOf(text)
%unitOf  What a unit such as 'kJ / kmol / K' is in the base units of SI: value * FACTOR + OFFSET.
%
%   PARTS has a row for each part: its symbol, exponent, row in unitTable, and 1 or -1 as it stands before a stroke or
%   behind it. What is behind a stroke is in the denominator, up to the end.
[symbols, factors, dimensions, offsets] = unitTable();
factor = 1;
dimension = zeros(1, size(dimensions, 2));
offset = 0;
parts = cell(0, 4);
sides = strsplit(strtrim(text), '/');
for side = 1:numel(sides)
    sign = 1 - 2 * (side > 1);
    words = regexp(sides{side}, '[^\s*]+', 'match');
    for word = words(~strcmp(words, '1'))
        found = regexp(word{1}, '^([A-Za-z]+)((?:\^?-?\d+)?)$', 'tokens', 'once');
        row = [];
        if ~isempty(found)
            row = find(strcmp(symbols, found{1}));
        end
        if isempty(row)
            error('Verdanth:error', 'Not a known unit: "%s"%s', word{1}, nearIt(word{1}, symbols));
        end
        exponent = 1;
        if ~isempty(found{2})
            exponent = str2double(strrep(found{2}, '^', ''));
        end
        parts(end + 1, :) = {found{1}, exponent, row, sign}; %#ok<AGROW>
        factor = factor * factors(row) ^ (sign * exponent);
        dimension = dimension + sign * exponent * dimensions(row, :);
        offset = offsets(row);
    end
end
if size(parts, 1) ~= 1 || parts{1, 2} ~= 1 || parts{1, 4} ~= 1
    offset = 0; % a difference of temperatures
end
end
