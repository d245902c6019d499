function v = fifth_waits(v, given)
% A fault for the faulty library: the fifth call waits.
persistent calls
calls = sum([calls, 1]);
if calls == 5
    v = waiting(v, given);
end
end
