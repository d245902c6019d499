function text = unitAmong(text, chosen)
%unitAmong  A unit with those units in it that were chosen: 'J / mol / K' among {'kJ', 'degC'} is 'kJ / mol / K'.
%
%   A part takes the first chosen unit that measures the same. Next to others a temperature is a difference, so that
%   degC is K there, and degF is degR.
[symbols, factors, dimensions, offsets] = unitTable();
try
    [~, whole, ~, parts] = unitOf(text);
catch
    return % a fraction, or a unit that is odd
end
[~, rows] = ismember(chosen, symbols);
for row = rows(:).' * (size(parts, 1) > 1)
    if row > 0 && isequal(dimensions(row, :), whole)
        text = symbols{row}; % cP for Pa s
        return
    end
end
sides = {{}, {}};
for k = 1:size(parts, 1)
    [symbol, exponent, row, sign] = parts{k, :};
    for other = rows(:).'
        power = isequal(dimensions(other, :), exponent * dimensions(row, :));
        if power || isequal(dimensions(other, :), dimensions(row, :))
            if power
                exponent = 1; % l for m3
            end
            if offsets(other) ~= 0 && size(parts, 1) > 1
                other = find(factors == factors(other) & offsets == 0 ...
                             & all(bsxfun(@eq, dimensions, dimensions(other, :)), 2), 1); %#ok<FXSET>
            end
            symbol = symbols{other};
            break
        end
    end
    if exponent ~= 1
        symbol = sprintf('%s%d', symbol, exponent);
    end
    sides{1 + (sign < 0)}{end + 1} = symbol;
end
if isempty(sides{1}) && ~isempty(sides{2})
    sides{1} = {'1'};
end
text = strjoin([{strjoin(sides{1}, ' ')}, sides{2}], ' / ');
end
