function object = string(words)
% Stands in Octave for MATLAB's class of this name: an array of texts.
if ischar(words)
    words = {words};
end
object = class(struct('words', {words}), 'string');
end
