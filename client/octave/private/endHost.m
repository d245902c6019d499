function endHost(in, out, waits)
%endHost  Close the pipes, so that the host closes its packages and ends. One that can't end soon is not waited for.
if isOpenPipe(in)
    fclose(in.id);
end
if ~isOpenPipe(out)
    return
end
while waits && ~isempty(fread(out.id, 2^20, '*uint8'))
end
fclose(out.id);
end
