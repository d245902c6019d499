function v = fails_with(words)
% The library's error, where a value is expected.
error('Verdanth:error', '%s', words);
end
