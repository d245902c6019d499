function message = callMessage(outputs, given)
%callMessage  The message that asks for so many results of a call with these arguments, as a column of bytes.
parts = cell(numel(given), 1);
for k = 1:numel(given)
    parts{k} = valueWords(given{k});
end
content = vertcat(uint64(outputs + 2^32 * numel(given)), parts{:});
call = 1;
message = typecast([uint64([call; 8 * numel(content)]); content], 'uint8');
end
