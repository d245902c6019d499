function words = cellstr(object)
words = object.words;
end
