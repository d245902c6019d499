function text = char(object)
text = object.words{1};
end
