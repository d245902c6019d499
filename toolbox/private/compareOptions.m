function options = compareOptions(options, saved)
%compareOptions  The options of a comparison, those of saved values where none are given; others than those are refused.
names = {'Level', 'Seed', 'Compositions', 'TRange', 'PRange'};
standard = {'full', 1, [], [], []};
options.Level = lower(capeopen.internal.charsOf(options.Level));
for k = 1:numel(names)
    if isempty(saved)
        before = standard{k};
    else
        before = saved.options.(names{k});
    end
    if isempty(options.(names{k}))
        options.(names{k}) = before;
    elseif ~isempty(saved) && ~isequal(options.(names{k}), before)
        error('Verdanth:error', 'The values were saved of another sample: %s was another', names{k});
    end
end
options = checkOptions(options);
if ~isnumeric(options.Tolerance) || ~isscalar(options.Tolerance) || ~(options.Tolerance >= 0)
    error('Verdanth:error', 'Expected a number that is not negative as Tolerance');
end
end
