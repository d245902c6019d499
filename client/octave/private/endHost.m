function endHost(in, out)
%endHost  Close the pipes: the host then closes its packages and ends, within seconds. Nobody waits for that, since it
%takes for ever if a program that Octave has started in the meantime holds a pipe, too.
for pipe = [in, out]
    if isOpenPipe(pipe)
        fclose(pipe.id);
    end
end
end
