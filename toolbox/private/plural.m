function noun = plural(count, noun)
%plural  A noun as it stands behind a number.
if count ~= 1
    noun = [noun, 's'];
end
end
