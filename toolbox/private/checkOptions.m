function options = checkOptions(options)
%checkOptions  The options of a check as what the rest reads: text as char, names as a cell array.
options.Level = capeopen.internal.charsOf(options.Level);
options.Report = capeopen.internal.charsOf(options.Report);
options.Checks = capeopen.internal.charsOf(options.Checks);
if ~iscell(options.Checks)
    options.Checks = cellstr(options.Checks);
end
options.Checks = reshape(options.Checks, 1, []);
if isequal(options.Checks, {''})
    options.Checks = {};
end
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
