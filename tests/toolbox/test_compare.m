% capeOpenCompare, one test each:  octave-cli tests/toolbox/test_compare.m TEST TOOLBOX VERDANTH
% TOOLBOX is the folder of the functions, VERDANTH the one where `Verdanth` is found.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% Name, command, property, what becomes of the result; kind and property of the difference, and its size: what is Q times
% as large is off by |1 - 1 / Q| or |1 - Q| of the larger, what fails has no size.
function faults = fault_table()
    faults = {
        'a critical temperature 1 % higher', 16, 'criticalTemperature', @(v, g) put(v, 2, v(2) * 1.01), ...
            'constant', 'criticalTemperature', 0.01 / 1.01
        'another formula', 16, 'chemicalFormula', @(v, g) put(v, 2, 'O3'), 'constant', 'chemicalFormula', 1
        'a constant fails', 16, 'acentricFactor', @(v, g) fails_with('GetCompoundConstant failed'), ...
            'constant', 'acentricFactor', Inf
        'vapor pressures 0.1 % lower', 20, 'vaporPressure', @(v, g) v * 0.999, 'TDependent', 'vaporPressure', 1e-3
        'boiling points 1e-6 lower', 21, 'boilingPointTemperature', @(v, g) v * (1 - 1e-6), ...
            'PDependent', 'boilingPointTemperature', 1e-6
        'densities 0.2 % lower', 22, 'density', @(v, g) v * 0.998, 'phase', 'density', 2e-3
        'fugacity coefficients 1e-5 lower', 22, 'fugacityCoefficient', @(v, g) v * (1 - 1e-5), ...
            'phase', 'fugacityCoefficient', 1e-5
        'a derivative by moles 1 % higher', 22, 'volume.Dmoles', @(v, g) v * 1.01, 'phase', 'volume.Dmoles', []
        'a derivative in pairs off', 22, 'fugacity.Dmoles', @(v, g) v * 1.01, 'phase', 'fugacity.Dmoles', []
        'a property is NaN', 22, 'viscosity', @(v, g) v * NaN, 'phase', 'viscosity', Inf
        'a property fails', 22, 'viscosity', @(v, g) fails_with('CalcSinglePhaseProp failed: no'), 'phase', 'viscosity', Inf
        'a property has too many values', 22, 'viscosity', @(v, g) [v, v], 'phase', 'viscosity', Inf
        'a bit more of the first phase', 24, '', @more_of_the_first_phase, 'flash', 'fraction', 1e-3
        'less of the first compound', 24, '', @first_compound_less, 'flash', 'composition', 1e-4
        'flashes fail', 24, '', @(v, g) fails_with('CalcEquilibrium failed: no'), 'flash', 'phases', 1
        };
end

function v = more_of_the_first_phase(v, given)
    if numel(v{2}) == 2
        v{2}(:) = v{2}(:) + [1e-3; -1e-3];
    end
end

function v = first_compound_less(v, given)
    v{3}(1, 1) = max(0, v{3}(1, 1) - 1e-4);
end

function [h, saved] = sound_natural_gas()
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    saved = capeOpenCompare(h, 'Level', 'quick');
end

function a_fault_is_a_difference_of_its_size(toolbox)
    global fault
    behind_the_faulty_one();
    fault = [];
    h = capeOpenCreate('Verdanth Reference Packages', 'Air');
    saved = capeOpenCompare(h, 'Level', 'quick');
    faults = fault_table();
    for k = 1:size(faults, 1)
        [name, command, property, alter, kind, shown, expected] = faults{k, :};
        fault = struct('command', command, 'property', property, 'alter', alter);
        result = capeOpenCompare(saved, h, 'Quiet', true);
        fault = [];
        rows = result.rows;
        check(~isempty(rows), '%s: no difference', name);
        check(all(strcmp({rows.kind}, kind)) && all(strcmp({rows.property}, shown)), '%s: %s %s', name, rows(1).kind, ...
              rows(end).property);
        if isempty(expected)
            check(rows(1).size > 1e-4 && rows(1).size < 1e-2, '%s: %g', name, rows(1).size);
        else
            check(isequal(rows(1).size, expected) || abs(rows(1).size / expected - 1) < 1e-6, '%s: %.9g', name, rows(1).size);
        end
        check(issorted(-[rows.size]), '%s: the largest is not the first', name);
    end
    fault = struct('command', 16, 'property', 'criticalTemperature', 'alter', @(v, g) put(v, 2, v(2) * 1.01));
    row = capeOpenCompare(saved, h, 'Quiet', true).rows;
    fault = [];
    check(numel(row) == 1 && strcmp(row.compound, capeOpenCompoundList(h){2}) && row.count == 1, 'not one row');
    check(abs(str2double(row.values{2}) / str2double(row.values{1}) - 1.01) < 1e-8, '%s against %s', row.values{:});
end

% A fault of one of them, which its handle tells, above 160 K in the vapor is told there, and nowhere else.
function two_packages_are_asked_the_same(toolbox)
    global fault
    behind_the_faulty_one();
    fault = [];
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
    same = capeOpenCompare(h, p, 'Level', 'quick', 'Quiet', true);
    check(isempty(same.rows) && same.asked > 10000 && numel(same.compounds) == 11, 'a package differs from itself');
    check(isempty([same.compoundsOfOne{:}]) && isempty([same.propertiesOfOne{:}]) && isempty([same.phasesOfOne{:}]), ...
          'one of them has more');
    air = capeOpenCreate('Verdanth Reference Packages', 'Air');
    fault = struct('command', 22, 'property', 'enthalpy', 'alter', ...
                   @(v, g) v + 1e3 * (g{3} == air & g{5} > 160 & strcmp(g{8}, 'Vapor')));
    result = capeOpenCompare(h, air, 'Level', 'quick', 'Quiet', true);
    fault = [];
    rows = result.rows;
    check(~isempty(rows) && all(strcmp({rows.property}, 'enthalpy')) && all(strcmp({rows.phase}, 'Vapor')), 'elsewhere');
    T = vertcat(rows.T);
    P = vertcat(rows.P);
    check(all(T(:) > 160) && all(T(:, 1) <= T(:, 2)) && all(P(:, 1) <= P(:, 2)), 'another range');
    check(all([rows.count] <= [rows.asked]) && any([rows.count] < [rows.asked]), 'all states differ');
    values = str2double(rows(1).values);
    check(abs(diff(values) - 1e3) < 1e-3, 'off by %g', diff(values));
    at = str2double(strtok(rows(1).where));
    check(abs(rows(1).size - 1e3 / (max(abs(values)) + 8.31446261815324 * at)) < 1e-6, 'the size is %g', rows(1).size);
end

function a_package_is_as_it_was(toolbox)
    [h, saved] = sound_natural_gas();
    file = [tempname(), '.mat'];
    save('-v7', file, 'saved');
    loaded = load(file);
    delete(file);
    result = capeOpenCompare(loaded.saved, h, 'Quiet', true);
    check(isempty(result.rows) && result.asked > 10000, 'it is another');
    check(strcmp(result.options.Level, 'quick'), 'another sample');
    text = evalc('capeOpenCompare(saved, h);');
    check(~isempty(regexp(text, 'Natural gas against .*: no differences in \d+ values of 11 compounds', 'once')), text);
end

% A composition by names, differences below the tolerance, and settings that are as they were.
function options_hold(toolbox)
    global fault
    behind_the_faulty_one();
    fault = [];
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    capeOpenBasis('mass');
    before = warning('query', 'Octave:some-id');
    Z = struct('methane', 0.7, 'propane', 0.3);
    saved = capeOpenCompare(h, 'Compositions', Z, 'TRange', [200, 250], 'PRange', [1e5, 1e6], 'Level', 'quick');
    fault = struct('command', 22, 'property', 'density', 'alter', @(v, g) v * 0.99);
    differing = capeOpenCompare(saved, h, 'Quiet', true, 'Tolerance', 0.0099).rows;
    same = capeOpenCompare(saved, h, 'Quiet', true, 'Tolerance', 0.0101);
    fault = [];
    check(strcmp(warning('query', 'Octave:some-id').state, before.state), 'warnings are off');
    check(strcmp(VerdanthItself(19, 'density'), 'kg / m3'), 'the basis is another');
    capeOpenBasis('mole');
    check(~isempty(differing) && isempty(same.rows), 'the tolerance is another');
    T = [differing.T];
    P = [differing.P];
    check(all(T >= 200 & T <= 250) && all(P >= 1e5 & P <= 1e6), 'other ranges');
    check(all(cellfun(@(text) isempty(strfind(text, ' ethane ')) && ~isempty(strfind(text, 'propane')), ...
                      {differing.where})), 'other compounds: %s', differing(1).where);
end

function only_compounds_of_both_are_compared(toolbox)
    global fault
    behind_the_faulty_one();
    fault = [];
    manager = 'Verdanth Reference Packages';
    result = capeOpenCompare({manager, 'Air'}, {manager, 'Natural gas'}, 'Level', 'quick', 'Quiet', true);
    check(isequal(result.compounds(:), {'nitrogen'; 'carbon dioxide'}), 'others: %s', strjoin(result.compounds, ', '));
    check(numel(result.compoundsOfOne{1}) == 6 && numel(result.compoundsOfOne{2}) == 9, 'some are told of neither');
    check(isempty(result.rows) && result.asked > 1000, 'nitrogen is another: %s', [result.rows.property]);
    [h, saved] = sound_natural_gas();
    fault = struct('command', 16, 'property', 'casRegistryNumber', 'alter', @(v, g) put(v, 3, '106-98-9'));
    result = capeOpenCompare(saved, h, 'Quiet', true);
    fault = [];
    check(numel(result.compounds) == 10 && isequal(result.compoundsOfOne{1}(:), {'propane'}), 'propane is in both');
    check(isequal(result.compoundsOfOne{2}(:), {'propane'}) && isempty(result.rows), 'others differ');
end

function the_largest_come_first(toolbox)
    global fault
    behind_the_faulty_one();
    fault = [];
    [h, saved] = sound_natural_gas();
    fault = struct('command', 20, 'property', 'vaporPressure', 'alter', ...
                   @(v, g) v .* repmat(1 - (1:11) / 100, size(v, 1), 1));
    result = capeOpenCompare(saved, h, 'Quiet', true);
    text = evalc('capeOpenCompare(saved, h);');
    fault = [];
    names = capeOpenCompoundList(h);
    check(isequal({result.rows.compound}, names(end:-1:1).'), 'another order');
    check(max(abs([result.rows.size] - (11:-1:1) / 100)) < 1e-12, 'other sizes');
    lines = strsplit(strtrim(text), "\n");
    check(numel(lines) == 4 && ~isempty(strfind(lines{1}, 'differences of 1 kind ')), '%d lines', numel(lines));
    check(~isempty(regexp(lines{2}, '^\s+0\.11\s+vaporPressure$', 'once')), lines{2});
    check(~isempty(regexp(lines{3}, ' against .*, of hydrogen sulfide at .* K$', 'once')), lines{3});
    check(~isempty(regexp(lines{4}, '\d+ of 44 values, .* to .* K$', 'once')), lines{4});
end

function what_can_not_be_compared_is_told(toolbox)
    manager = 'Verdanth Reference Packages';
    [h, saved] = sound_natural_gas();
    air = {manager, 'Air'};
    gas = {manager, 'Natural gas'};
    Z = ones(1, 8) / 8;
    cases = {
        'Compare', 'Expected one or two packages, not ...', @() capeOpenCompare()
        'Compare', 'Expected one or two packages, not ...', @() capeOpenCompare(h, h, h)
        'Compare', 'Expected a package, or what capeOpenCompare saved of one, not ...', @() capeOpenCompare(struct(), h)
        'Compare', 'Expected a package, or what capeOpenCompare saved of one, not ...', @() capeOpenCompare(h, saved)
        'Compare', 'The values were saved of "...", not of "..."', @() capeOpenCompare(saved, air)
        'Compare', 'The values were saved of another sample: ... was another', @() capeOpenCompare(saved, h, 'Seed', 2)
        'Compare', 'The values were saved of another sample: ... was another', ...
            @() capeOpenCompare(saved, h, 'Level', 'full')
        'Compare', 'The packages have no compound in common', @() capeOpenCompare(air, {manager, 'Aromatics'})
        'Compare', 'Expected compositions of compounds that both packages have', ...
            @() capeOpenCompare(air, gas, 'Compositions', Z)
        'Compare', 'Expected a number that is not negative as Tolerance', @() capeOpenCompare(h, h, 'Tolerance', -1)
        };
    check_messages(toolbox, cases);
    check(isempty(capeOpenCompare(saved, h, 'Seed', 1, 'Level', 'QUICK', 'Quiet', true).rows), 'the same is refused');
    check(isequal(capeOpenHandleList(), h), 'packages stay open');
end

run_test(argv());
