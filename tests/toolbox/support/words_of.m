function words = words_of(action)
% The library's words of the error that an action raises: its first line, '' for none. The others are the toolbox's.
words = strtok(message_of(action), "\n");
end
