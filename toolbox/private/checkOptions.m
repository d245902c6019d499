function options = checkOptions(options)
%checkOptions  The options of a sample as what the rest reads: text as char.
options.Level = capeopen.internal.charsOf(options.Level);
if ~ischar(options.Level) || ~any(strcmpi(options.Level, {'quick', 'full'}))
    error('Verdanth:error', 'Expected ''quick'' or ''full'' as Level');
end
for name = {'TRange', 'PRange'}
    range = options.(name{1});
    if ~isempty(range) && (~isnumeric(range) || numel(range) ~= 2 || ~all(range > 0) || range(1) > range(2))
        error('Verdanth:error', 'Expected the lowest and the highest value as %s', name{1});
    end
end
if ~isnumeric(options.Seed) || ~isscalar(options.Seed) || ~isfinite(options.Seed)
    error('Verdanth:error', 'Expected a number as Seed');
end
end
