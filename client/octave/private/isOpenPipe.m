function yes = isOpenPipe(pipe)
%isOpenPipe  Whether a pipe is still open, and its number no other file's: fclose('all') of a script closes pipes, too.
yes = strcmp(fopen(pipe.id), pipe.name);
end
