% Second liquids and third phases in phase envelopes, one test each:
% octave-cli tests/toolbox/test_three_phases.m TEST TOOLBOX VERDANTH
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% Blocks of rows that rows of NaN end.
function parts = parted(rows)
    ends = [0; find(isnan(rows(:, 1)))];
    parts = arrayfun(@(k) rows(ends(k) + 1:ends(k + 1) - 1, :), 1:numel(ends) - 1, 'UniformOutput', false);
end

% Both of these have a loop inside that begins and ends in the same point.
function lines_inside_come_once(~)
    for mixture = {'reservoir', 3; 'natural_gas', 5}.'
        [h, Z] = open_family(mixture{:});
        [~, ~, ~, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        lines = parted(threePhases);
        ends = cellfun(@(line) line([1 end], :), lines, 'UniformOutput', false);
        ends = vertcat(ends{:});
        check(~isempty(ends), 'no lines inside of %s %d', mixture{:});
        for k = 1:rows(ends)
            apart = max(abs(ends([1:k - 1, k + 1:end], :) ./ ends(k, :) - 1), [], 2);
            check(all(apart > 1e-6), '%s %d: two lines at %g K', mixture{:}, ends(k, 1));
        end
        capeOpenRelease(h);
    end
end

% Where vapor and liquid become the same beside water, one line goes over into the other.
function lines_of_three_phases_leave_no_gap(~)
    h = capeOpenCreate(natural_gas(), 'Wet gas and hydrocarbons');
    Z = mixture(h, 'methane', 0.7, 'propane', 0.15, 'n-hexane', 0.1, 'water', 0.05);
    [T, P, vapor, ~, inside] = capeOpenPhaseEnvelope(h, Z);
    bubbles = sortrows([T(vapor == 0), P(vapor == 0)]);
    check(any(all(abs(inside ./ bubbles(end, :) - 1) < 1e-9, 2)), 'the bubble points end at %g K and %g Pa', bubbles(end, :));
    capeOpenRelease(h);
end

% A line ends where the flash has other phases than its points, as where more form than it has names for.
function ends_of_lines_inside_are_told(~)
    for mixture = {'carbon_dioxide', 2, 'the points where a third phase appears end at'
                   'carbon_dioxide', 5, 'the bubble points end at 120.87 K'}.'
        [h, Z] = open_family(mixture{1:2});
        lastwarn('');
        [~, ~, ~, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        check(~isempty(strfind(lastwarn(), mixture{3})), 'told: %s', lastwarn());
        check(all(cellfun(@rows, parted(threePhases)) > 1), 'lines of one point');
        capeOpenRelease(h);
    end
end

% A step along a line is short, between lines that do not join stands a row of NaN.
function lines_that_do_not_join_are_parted(~)
    for mixture = {'carbon_dioxide', 3; 'reservoir', 3; 'hydrocarbon_water', 2}.'
        [h, Z] = open_family(mixture{:});
        [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
        steps = abs(diff(log([T, P])));
        [most, at] = max(steps);
        check(all(most < [0.11, 1.01]), '%s: from %g K, %g Pa to %g K, %g Pa', mixture{1}, T(at(1)), P(at(1)), ...
              T(at(1) + 1), P(at(1) + 1));
        check(any(isnan(T)) && isequal(isnan(T), isnan(P)) && all(isnan(vapor(isnan(T)))), 'rows of NaN');
        check(~any(isnan(T([1 end]))) && ~any(isnan(T(1:end - 1)) & isnan(T(2:end))), 'more rows of NaN than needed');
        capeOpenRelease(h);
    end
end

% Two liquids that are nearly the same are none the less liquids.
function a_second_liquid_is_no_dew_point(~)
    [h, Z] = open_family('reservoir', 109);
    [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
    told = 0;
    for k = find(vapor == 1).'
        for side = [-1e-4, 1e-4]
            labels = capeOpenFlash(h, Z, 'Temperature', T(k) * (1 + side), 'Pressure', P(k), 'Unspecified');
            told = told + (numel(labels) > 1);
            check(numel(labels) == 1 || any(strcmp(labels, 'Vapor')), 'two liquids at %g K, %g Pa', T(k), P(k));
        end
    end
    check(told > 10, '%d points with two phases beside them', told);
    capeOpenRelease(h);
end

% Where the flash of mixture and new phase together fails, that of the mixture may still see that it is no boundary.
function no_point_lies_where_vapor_and_liquid_are(~)
    [h, Z] = open_family('sour', 19);
    [T, P, vapor] = capeOpenPhaseEnvelope(h, Z);
    check(sum(~isnan(vapor)) > 30, '%d points', sum(~isnan(vapor)));
    for k = find(~isnan(vapor)).'
        try
            [labels, fractions] = capeOpenFlash(h, Z, 'Temperature', T(k), 'Pressure', P(k), 'Unspecified');
        catch
            continue % is told
        end
        share = sum(fractions(strcmp(labels, 'Vapor')));
        check(share < 1e-3 || share > 1 - 1e-3, '%g is vapor at %g K and %g Pa', share, T(k), P(k));
    end
    for line = parted([T, P, vapor; NaN, NaN, NaN]) % where branches join, both have the point
        ends = line{1}([1, 2, end - 1, end], :);
        check(~isequal(ends(1, :), ends(2, :)) && ~isequal(ends(3, :), ends(4, :)), 'an end of the line at %g K comes twice', ends(1));
    end
    capeOpenRelease(h);
end

% To one side of a line inside the flash finds a phase more than to the other side. Those of a second liquid have one and
% two phases beside them.
function a_third_phase_and_a_second_liquid_appear_to_the_flash(~)
    for mixture = {'hydrocarbon_water', 1; 'carbon_dioxide', 1; 'reservoir', 5; 'sour', 8}.'
        [h, Z] = open_family(mixture{:});
        [T, P, vapor, ~, threePhases] = capeOpenPhaseEnvelope(h, Z);
        points = threePhases(~isnan(threePhases(:, 1)), :);
        check(rows(points) > 10, '%d points inside', rows(points));
        beside = @(T, P) sort([phases_at(h, Z, T - 0.05, P), phases_at(h, Z, T + 0.05, P)]);
        for row = points(3:4:end - 2, :).'
            check(isequal(beside(row(1), row(2)), [2 3]), '%s: %g K, %g Pa inside', mixture{1}, row);
        end
        liquids = find(isnan(vapor) & ~isnan(T));
        check(strcmp(mixture{1}, 'hydrocarbon_water') || numel(liquids) > 5, '%d points of two liquids', numel(liquids));
        for k = liquids(3:4:end - 2).'
            check(isequal(beside(T(k), P(k)), [1 2]), '%s: %g K, %g Pa', mixture{1}, T(k), P(k));
            phases = capeOpenFlash(h, Z, 'Temperature', T(k) - 0.05, 'Pressure', P(k), 'Unspecified');
            check(~any(strcmp(phases, 'Vapor')), '%s: a vapor at %g K, %g Pa', mixture{1}, T(k), P(k));
        end
        capeOpenRelease(h);
    end
end

run_test(argv());
