function handle = handleGiven(code, given)
%handleGiven  The handle among the arguments of a call, or empty.
[~, place] = commandWords(code);
handle = zeros(0, 1, 'int32');
if place > 0 && numel(given) > place && isa(given{place + 1}, 'int32') && isscalar(given{place + 1})
    handle = given{place + 1};
end
end
