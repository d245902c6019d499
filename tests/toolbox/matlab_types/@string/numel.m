function count = numel(object, varargin)
count = numel(object.words);
end
