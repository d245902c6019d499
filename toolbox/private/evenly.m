function some = evenly(count, wanted)
%evenly  At most this many of the numbers from 1 to COUNT, evenly spread.
some = unique(round(linspace(1, count, min(count, wanted))));
if count == 0
    some = zeros(1, 0);
end
end
