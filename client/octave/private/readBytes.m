function bytes = readBytes(pipe, count)
%readBytes  So many bytes, or fewer where the stream ends. Memory is taken as bytes arrive.
bytes = fread(pipe, min(count, 2^24), '*uint8');
if numel(bytes) == count
    return
end
blocks = {bytes};
count = count - numel(bytes);
while count > 0 && ~isempty(blocks{end})
    blocks{end + 1} = fread(pipe, min(count, 2^24), '*uint8'); %#ok<AGROW>
    count = count - numel(blocks{end});
end
bytes = vertcat(blocks{:});
end
