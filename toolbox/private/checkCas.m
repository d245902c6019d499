function tally = checkCas(s, tally)
%checkCas  CAS numbers: their form, their check digit, and whether two compounds have the same.
%
%   The last digit is the sum of the others, each times its place counted from the right, modulo 10.
if ~any(strcmpi(s.constants, 'casRegistryNumber'))
    tally = checkFound(tally, 'note', 'casRegistryNumber is not listed: compounds can not be matched by it', '', ...
        {s.opening});
    return
end
numbers = capeOpenConstant(s.handle, 'casRegistryNumber');
lines = {s.opening; 'numbers = capeOpenConstant(handle, ''casRegistryNumber'')'};
for k = 1:numel(numbers)
    tally.asked = tally.asked + 1;
    where = s.compounds{k};
    this = [lines; {sprintf('numbers{%d}', k)}];
    if isempty(numbers{k})
        tally = checkFound(tally, 'note', 'A compound has no CAS number', where, this);
    elseif isempty(regexp(numbers{k}, '^[1-9]\d{1,6}-\d\d-\d$', 'once'))
        tally = checkFound(tally, 'failure', sprintf('"%s" has not the form of a CAS number', numbers{k}), where, this);
    else
        digits = numbers{k}(numbers{k} ~= '-') - '0';
        right = mod(sum(digits(end - 1:-1:1) .* (1:numel(digits) - 1)), 10);
        if right ~= digits(end)
            tally = checkFound(tally, 'failure', sprintf('The check digit of the CAS number %s should be %d', ...
                                                         numbers{k}, right), where, this);
        end
        if sum(strcmp(numbers, numbers{k})) > 1 && find(strcmp(numbers, numbers{k}), 1) == k
            tally = checkFound(tally, 'failure', sprintf('Two compounds have the CAS number %s', numbers{k}), ...
                where, this);
        end
    end
end
end
