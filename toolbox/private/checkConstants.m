function tally = checkConstants(s, tally)
%checkConstants  Each listed constant is there, and those that follow from each other do.
%
%   Two numbers for the same quantity agree to 1e-3, three digits that tables round to; that of the critical
%   compressibility factor to 1 %, as critical volumes are known no better.
for name = reshape(s.constants, 1, [])
    tally.asked = tally.asked + 1;
    lines = {s.opening; sprintf('capeOpenConstant(handle, ''%s'')', name{1})};
    try
        values = capeOpenConstant(s.handle, name{1});
        if numel(values) ~= s.n
            what = sprintf('%s has %d values for %d compounds', name{1}, numel(values), s.n);
            tally = checkFound(tally, 'failure', what, '', [lines(1); {['numbers = ', lines{2}]}]);
        elseif isnumeric(values) && all(isnan(values))
            tally = checkFound(tally, 'note', sprintf('%s is listed, but no compound has it', name{1}), '', lines);
        end
    catch problem
        tally = checkFound(tally, 'failure', sprintf('%s is listed, but fails: %s', name{1}, problem.message), '', ...
            lines);
    end
end
relations = {
    {'criticalVolume', 'criticalDensity'}, 'criticalVolume .* criticalDensity - 1', '1e-3'
    {'liquidVolumeAt25C', 'liquidDensityAt25C'}, 'liquidVolumeAt25C .* liquidDensityAt25C - 1', '1e-3'
    {'criticalCompressibilityFactor', 'criticalPressure', 'criticalVolume', 'criticalTemperature'}, ...
        ['criticalPressure .* criticalVolume ./ (8.31446 * criticalTemperature .* criticalCompressibilityFactor)', ...
            ' - 1'], '1e-2'
    {'normalBoilingPoint', 'criticalTemperature'}, 'max(0, normalBoilingPoint ./ criticalTemperature - 1)', '0'
    };
for k = 1:size(relations, 1)
    [names, zero, limit] = relations{k, :};
    if ~all(ismember(lower(names), lower(s.constants)))
        continue
    end
    values = cellfun(@(name) constantValues(s.handle, name, s.n), names, 'UniformOutput', false);
    deviation = evaluated(zero, names, values, [], [], [], s.R);
    limits = str2double(limit) * ones(size(deviation));
    limits(isnan(deviation)) = NaN; % a compound without it
    given = cellfun(@(name) sprintf('%s = capeOpenConstant(handle, ''%s'');', name, name), names(:), ...
        'UniformOutput', false);
    lines = [{s.opening}; given; {sprintf('deviation = abs(%s)', zero); sprintf('limit = %s', limit)}];
    what = ['Constants: ', relationText(zero), ' is not zero'];
    tally = checkCompared(tally, 'failure', what, deviation, limits, [], @(row) lines);
end
end
