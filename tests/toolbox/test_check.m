% capeOpenCheck, one test each:  octave-cli tests/toolbox/test_check.m TEST TOOLBOX VERDANTH
% TOOLBOX is the folder of the functions, VERDANTH the one where `Verdanth` is found.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

% Name, command, property, what becomes of the result, and the check that has to find it.
function faults = fault_table()
    faults = {
        'wrong check digit', 16, 'casRegistryNumber', @(v, g) put(v, 1, '74-82-9'), 'casNumbers'
        'CAS number with a leading zero', 16, 'casRegistryNumber', @(v, g) put(v, 2, '074-84-0'), 'casNumbers'
        'CAS number twice', 16, 'casRegistryNumber', @(v, g) put(v, 2, v{1}), 'casNumbers'
        'weight of another compound', 16, 'molecularWeight', @(v, g) v([2, 1, 3:end]), 'molecularWeights'
        'weights in kg', 16, 'molecularWeight', @(v, g) v / 1000, 'molecularWeights'
        'critical volumes in cm3', 16, 'criticalVolume', @(v, g) v * 1e6, 'constants'
        'critical densities of another table', 16, 'criticalDensity', @(v, g) v * 1.01, 'constants'
        'boiling points above critical ones', 16, 'normalBoilingPoint', @(v, g) v * 3, 'constants'
        'a listed constant fails', 16, 'acentricFactor', @(v, g) fails_with('GetCompoundConstant failed'), 'constants'
        'boiling points 5 K off', 16, 'normalBoilingPoint', @(v, g) v + 5, 'pureProperties'
        'vapor pressures in bar', 20, 'vaporPressure', @(v, g) v / 1e5, 'pureProperties'
        'ideal heat capacities in cal', 20, 'idealGasHeatCapacity', @(v, g) v / 4.184, 'pureProperties'
        'ideal enthalpy of other sign', 20, 'idealGasEnthalpy', @(v, g) -v, 'pureProperties'
        'ideal entropy of another correlation', 20, 'idealGasEntropy', @(v, g) v * 1.0001, 'pureProperties'
        'heat of vaporization 10 % off', 20, 'heatOfVaporization', @(v, g) v * 1.1, 'pureProperties'
        'a listed pure property is NaN', 20, 'viscosityOfLiquid', @(v, g) v * NaN, 'pureProperties'
        'boiling temperatures in degC', 21, 'boilingPointTemperature', @(v, g) v - 273.15, 'pureProperties'
        'density in kg', 22, 'density', @(v, g) v * 0.016, 'volumes'
        'volume 1e-6 off', 22, 'volume', @(v, g) v * (1 + 1e-6), 'volumes'
        'compressibility factor 1e-6 off', 22, 'compressibilityFactor', @(v, g) v * (1 + 1e-6), 'volumes'
        'molar mass in kg', 22, 'molecularWeight', @(v, g) v / 1000, 'volumes'
        'compressibility of other sign', 22, 'compressibility', @(v, g) -v, 'listedProperties'
        'derivative of other sign', 22, 'enthalpy.Dtemperature', @(v, g) -v, 'temperatureDerivatives'
        'derivative by temperature 1e-4 off', 22, 'volume.Dtemperature', @(v, g) v * 1.0001, 'temperatureDerivatives'
        'derivative by pressure 1e-3 off', 22, 'entropy.Dpressure', @(v, g) v * 1.001, 'pressureDerivatives'
        'derivative per bar', 22, 'logFugacity.Dpressure', @(v, g) v * 1e5, 'pressureDerivatives'
        'Gibbs-Duhem broken by 1e-3', 22, 'logFugacityCoefficient.Dmoles', @(v, g) v * (1 + 1e-3) - 1e-3, 'moles'
        'derivatives by moles without symmetry', 22, 'logFugacityCoefficient.Dmoles', @(v, g) v + 1e-6 * triu(v), 'moles'
        'partial molar volume is a derivative', 22, 'volume.Dmoles', @(v, g) v * 0.99, 'moles'
        'derivative by moles 1e-3 off', 22, 'enthalpy.Dmoles', @(v, g) v * 1.001, 'moleDerivatives'
        'derivative by fractions 1e-3 off', 22, 'density.DmolFraction', @(v, g) v * 1.001, 'fractionDerivatives'
        'heat capacity in cal', 22, 'heatCapacityCp', @(v, g) v / 4.184, 'heatCapacities'
        'heat capacity at constant volume 1e-4 off', 22, 'heatCapacityCv', @(v, g) v * 1.0001, 'heatCapacities'
        'speed of sound 1e-4 off', 22, 'speedOfSound', @(v, g) v * 1.0001, 'heatCapacities'
        'Joule-Thomson of other sign', 22, 'jouleThomsonCoefficient', @(v, g) -v, 'relations'
        'entropy of another model', 22, 'entropy', @(v, g) v * 1.0001, 'relations'
        'Gibbs energy of other sign', 22, 'gibbsEnergy', @(v, g) -v, 'energies'
        'internal energy off by a tenth of a J', 22, 'internalEnergy', @(v, g) v + 0.1, 'energies'
        'Helmholtz energy off by a tenth of a J', 22, 'helmholtzEnergy', @(v, g) v - 0.1, 'energies'
        'excess Gibbs energy off by R T', 22, 'excessGibbsEnergy', @(v, g) v + 2500, 'energies'
        'fugacity coefficient is its logarithm', 22, 'fugacityCoefficient', @(v, g) log(v), 'fugacities'
        'fugacity 1e-7 off', 22, 'fugacity', @(v, g) v * (1 + 1e-7), 'fugacities'
        'one value is NaN', 22, 'density', @(v, g) put(v, 1, NaN), 'listedProperties'
        'a listed property fails', 22, 'viscosity', @(v, g) fails_with('CalcSinglePhaseProp failed: no'), 'listedProperties'
        'a conductivity is negative', 22, 'thermalConductivity', @(v, g) -v, 'listedProperties'
        'an excess volume is infinite', 22, 'excessVolume', @(v, g) v + Inf, 'listedProperties'
        'diffusion coefficients without symmetry', 22, 'diffusionCoefficient', @(v, g) v + 1e-6 * triu(v), 'moles'
        'capital letters give another value', 22, 'density', @(v, g) v * (1 + strcmp(g{4}, 'DENSITY')), 'unlistedProperties'
        'K-values of the other phase', 23, 'kvalue', @(v, g) 1 ./ v, 'twoPhases'
        'derivative of K-values of other sign', 23, 'logKvalue.Dtemperature', @(v, g) -v, 'twoPhases'
        'surface tension is NaN', 23, 'surfaceTension', @(v, g) v * NaN, 'twoPhases'
        'flash off by 1e-4', 24, '', @flash_off, 'flashes'
        'fractions of phases off', 24, '', @(v, g) put(v, 2, v{2} * 1.00001), 'flashes'
        'another temperature', 24, '', @(v, g) put(v, 4, v{4} + 1e-3), 'flashes'
        'another pressure', 24, '', @(v, g) put(v, 5, v{5} * 1.0001), 'flashes'
        'a fraction is negative', 24, '', @(v, g) put(v, 3, v{3} - (v{3} == min(v{3}(:))) * 1e-6), 'flashes'
        'no phase', 24, '', @no_phase, 'flashes'
        'a phase that is not listed', 24, '', @(v, g) put(v, 1, vertcat({'Solid'}, v{1}(2:end))), 'flashes'
        'a phase twice', 24, '', @first_phase_twice, 'flashes'
        'a fraction too few', 24, '', @(v, g) put(v, 2, v{2}(2:end)), 'flashes'
        'a phase without composition', 24, '', @(v, g) put(v, 3, put(v{3}, size(v{3}, 1), NaN)), 'flashes'
        'compositions of a compound too few', 24, '', @(v, g) put(v, 3, v{3}(:, 1:end - 1)), 'flashes'
        'no temperature', 24, '', @(v, g) put(v, 4, NaN), 'flashes'
        'one phase where two are stable', 24, '', @one_phase, 'stability'
        'dew pressures 0.1 % off', 24, '', @(v, g) put(v, 5, v{5} * (1 + 1e-3 * at_fraction(g, 1))), 'boundaries'
        'bubble temperatures 0.01 K off', 24, '', @(v, g) put(v, 4, v{4} + 0.01 * at_fraction(g, 0)), 'boundaries'
        'retrograde dew pressures 0.1 % off', 24, '', @(v, g) put(v, 5, v{5} * (1 + 1e-3 * retrograde(g))), 'boundaries'
        'normal dew pressures in place of retrograde ones', 24, '', @normal_one, 'boundaries'
        'one phase at a retrograde dew point', 24, '', @(v, g) other(retrograde(g), one_phase(v, g), v), 'boundaries'
        'nothing of the vapor at a dew point', 24, '', @(v, g) put(v, 2, other(at_fraction(g, 1), flipud(v{2}), v{2})), 'boundaries'
        'the drop at a dew point has the composition of the vapor', 24, '', ...
            @(v, g) put(v, 3, other(at_fraction(g, 1), v{3}(ones(size(v{3}, 1), 1), :), v{3})), 'boundaries'
        'compositions in mole fractions in mass basis', 24, '', @in_mole_fractions, 'massFlashes'
        'enthalpies per mole in mass basis', 25, 'Temperature', ...
            @(v, g) v + 1 * (any(strcmpi(g(4:2:6), 'enthalpy')) && in_mass()), 'massFlashes'
        'all flashes fail', 24, '', @(v, g) fails_with('CalcEquilibrium failed: no'), 'flashes'
        'hidden state', 24, '', @hidden_state, 'roundTrips'
        'noise in the last bits', 24, '', @noise, 'roundTrips'
        'the order of specifications counts', 24, '', ...
            @(v, g) put(v, 2, v{2} * (1 + 1e-6 * strcmpi(g{4}, 'Pressure'))), 'roundTrips'
        'flash by enthalpy off by a J', 25, 'enthalpy', @(v, g) v + any(strcmpi(g(4:2:6), 'enthalpy')), 'roundTrips'
        'flash by entropy off', 25, 'entropy', @(v, g) v + 0.01 * any(strcmpi(g(4:2:6), 'entropy')), 'roundTrips'
        'flash by volume off by 1e-4', 25, 'volume', @(v, g) v * (1 + 1e-4 * any(strcmpi(g(4:2:6), 'volume'))), 'roundTrips'
        'flash by enthalpy and entropy off', 25, 'entropy', ...
            @(v, g) v + 0.01 * all(ismember(lower(g(4:2:6)), {'enthalpy', 'entropy'})), 'roundTrips'
        'flash by volume and energy off', 25, 'volume', ...
            @(v, g) v * (1 + 1e-4 * all(ismember(lower(g(4:2:6)), {'volume', 'internalenergy'}))), 'roundTrips'
        'compressibility factor of a gas without pressure', 22, 'compressibilityFactor', @(v, g) v + 1e-6, 'lowPressures'
        'ideal gas of another heat capacity', 22, 'heatCapacityCp', @(v, g) v + 0.01, 'lowPressures'
        'fugacity coefficients of another gas constant', 22, 'logFugacityCoefficient', @(v, g) v + 1e-6, 'lowPressures'
        'entropies without that of mixing', 22, 'entropy', @(v, g) v + 8.314 * mixing(g{7}), 'lowPressures'
        'excess enthalpies of pure compounds', 22, 'excessEnthalpy', @(v, g) v + 1, 'lowPressures'
        'a row of a batch is that before it', 22, 'density', @(v, g) v([1, 1:end - 1], :), 'batches'
        'a property among others is another', 22, 'viscosity', @(v, g) v * (1 + 1e-6 * (g{2} > 1)), 'batches'
        'a row of a batch of flashes is that before it', 25, 'volume', @(v, g) v([1, 1:end - 1], :), 'batches'
        'a constant of a compound too few', 16, 'criticalPressure', @(v, g) v(1:end - 1), 'constants'
        'a pure property of a compound too few', 20, 'vaporPressure', @(v, g) v(:, 1:end - 1), 'pureProperties'
        'K-values of a compound too few', 23, 'kvalue', @(v, g) v(:, 1:end - 1), 'twoPhases'
        'K-values by moles 1e-3 off', 23, 'logKvalue.Dmoles', @(v, g) put(v, 1, v{1} * 1.001), 'twoPhases'
        'surface tension by fractions of the other phase', 23, 'surfaceTension.DmolFraction', @(v, g) v([2, 1]), 'twoPhases'
        'derivatives of one phase alone', 23, 'kvalue.DmolFraction', @(v, g) v(1), 'twoPhases'
        'in mass basis per mole', 22, 'enthalpy', @(v, g) v * (1 + strcmp(VerdanthItself(19, 'density'), 'kg / m3')), 'bases'
        };
end

% A bit of the first compound comes out of the first phase into the last.
function v = flash_off(v, given)
    if size(v{3}, 1) > 1
        v{3}(1, :) = v{3}(1, :) .* (1 + 1e-4 * (1:size(v{3}, 2) > 1));
        v{3}(1, :) = v{3}(1, :) / sum(v{3}(1, :));
    end
end

function v = no_phase(v, given)
    v(1:3) = {cell(0, 1), zeros(0, 1), zeros(0, numel(given{3}))};
end

function v = first_phase_twice(v, given)
    v(1:3) = {v{1}([1, 1:end]), v{2}([1, 1:end]) / (1 + v{2}(1)), v{3}([1, 1:end], :)};
end

% What the flash is given as a single vapor.
function v = one_phase(v, given)
    v(1:3) = {{'Vapor'}, 1, given{3}(:).'};
end

% Whether the flash is one at a vapor fraction; retrograde, whether it is one at a dew point of that type.
function answer = at_fraction(given, fraction)
    answer = any(strcmpi(given([4, 6]), 'vaporFraction') & cellfun(@(x) isequal(x, fraction), given([5, 7])));
end

function answer = retrograde(given)
    answer = strcmpi(given{8}, 'Retrograde') && at_fraction(given, 1);
end

function v = normal_one(v, given)
    if retrograde(given)
        [v{1:5}] = VerdanthItself(given{1:7}, 'Normal');
    end
end

function value = other(condition, value, instead)
    if ~condition
        value = instead;
    end
end

function answer = in_mass()
    answer = strcmp(VerdanthItself(19, 'density'), 'kg / m3');
end

function v = in_mole_fractions(v, given)
    if in_mass()
        m = VerdanthItself(16, given{2}, 'molecularWeight');
        v{3} = bsxfun(@rdivide, v{3}, m);
        v{3} = bsxfun(@rdivide, v{3}, sum(v{3}, 2));
    end
end

% Sum of x ln x in each row.
function s = mixing(X)
    s = sum(X .* log(max(X, 1e-300)), 2);
end

function v = hidden_state(v, given)
    persistent before
    now = given{5} + given{7};
    if ~isempty(before) && before ~= now
        v{2} = v{2} * (1 + 1e-6);
    end
    before = now;
end

function v = noise(v, given)
    persistent count
    count = sum([count, 1]);
    v{3} = v{3} * (1 + mod(count, 7) * 2 * eps);
end

function every_fault_is_found(toolbox)
    global fault
    behind_the_faulty_one();
    faults = fault_table();
    check(size(faults, 1) >= 40, 'there are %d faults', size(faults, 1));
    for k = 1:size(faults, 1)
        fault = [];
        h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas'); % is open beyond each check
        fault = struct('command', faults{k, 2}, 'property', faults{k, 3}, 'alter', faults{k, 4});
        report = quick_check('Checks', faults(k, 5));
        bad = report.findings(strcmp({report.findings.severity}, 'failure'));
        check(~isempty(bad) && strcmp(report.verdict, 'failures'), '%s: not found by %s', faults{k, [1, 5]});
        check(isempty(regexp([bad.what], 'The check ended', 'once')), '%s: %s', faults{k, 1}, bad(1).what);
        check(isempty(regexp([bad.what], '_D|\.[*/^]', 'once')), '%s: %s is no name', faults{k, 1}, bad(1).what);
        if ~any(strcmp(faults{k, 1}, {'hidden state', 'noise in the last bits'})) % those remember other calls
            for finding = bad
                check(reproduces(finding), '%s: %s is not shown by\n%s', faults{k, 1}, finding.what, ...
                      strjoin(finding.lines(:).', sprintf('\n')));
            end
        end
    end
    fault = [];
end

% Two liquids of a sound flash are told as one, which has the composition of both: only the fugacities tell it.
function a_liquid_too_few_is_found(toolbox)
    global fault
    behind_the_faulty_one();
    ask = @() capeOpenCheck('Verdanth Reference Packages', 'Wet gas and hydrocarbons', 'Level', 'quick', ...
        'Compositions', {'water', 0.5, 'n-hexane', 0.5}, 'TRange', [280, 320], 'PRange', [5e6, 6e6], ...
        'Checks', {'flashes', 'stability'}, 'Quiet', true);
    fault = [];
    check(strcmp(ask().verdict, 'passed'), 'a sound one is told of');
    fault = struct('command', 24, 'property', '', 'alter', @one_liquid);
    report = ask();
    check(numel(report.findings) == 1 && strcmp(report.findings.check, 'stability'), '%d findings', ...
          numel(report.findings));
    check(report.findings.count == 6 && ~isempty(regexp(report.findings.where, 'would lower the Gibbs energy', 'once')), ...
          report.findings.where);
    check(reproduces(report.findings), '%s', strjoin(report.findings.lines(:).', sprintf('\n')));
    fault = [];
end

function v = one_liquid(v, given)
    v(1:3) = {{'Liquid'}, 1, given{3}(:).'};
end

function a_sound_package_has_no_failure(toolbox)
    report = quick_check();
    bad = report.findings(strcmp({report.findings.severity}, 'failure'));
    check(isempty(bad), '%s', strjoin([{''}, {bad.what}], '; '));
    check(report.complete && strcmp(report.verdict, 'notes') && all([report.checks.asked] > 0), 'a check asks nothing');
    check(isequal(capeOpenCheck('last').checks, report.checks), 'the last report is another');
    check(strcmp(report.pairs.names{1}, 'Temperature') && strcmp(report.pairs.names{2}, 'Pressure'), 'other pairs');
    check(isequal(triu(report.pairs.solved > 0, 1), triu(report.pairs.asked > 0, 1)), 'a pair fails');
    check(sum(report.pairs.asked(:) > 0) == 36, '%d pairs are asked', sum(report.pairs.asked(:) > 0));
    again = quick_check('Checks', {'volumes'});
    check(isequal(again.checks.bars, report.checks(strcmp({report.checks.name}, 'volumes')).bars), ...
          'the same seed gives another sample');
end

function no_reference_package_has_a_failure(toolbox)
    packages = capeOpenPackageList('Verdanth Reference Packages');
    have_no_failure(packages(~strncmp(packages, 'All', 3)));
end

function no_package_of_all_compounds_has_a_failure(toolbox)
    packages = capeOpenPackageList('Verdanth Reference Packages');
    have_no_failure(packages(strncmp(packages, 'All', 3)));
end

% By all checks but those of times and memory.
function have_no_failure(packages)
    checks = names_of_checks();
    check(~isempty(packages), 'there is no package');
    for package = reshape(packages, 1, [])
        report = capeOpenCheck('Verdanth Reference Packages', package{1}, 'Level', 'quick', 'Seed', 2, 'Quiet', true, ...
                               'Checks', checks(~ismember(checks, {'times', 'manyCalls'})));
        bad = report.findings(strcmp({report.findings.severity}, 'failure'));
        check(isempty(bad), '%s: %s', package{1}, strjoin([{''}, {bad.what}], '; '));
        check(all([report.checks.asked] > 0), '%s: a check asks nothing', package{1});
    end
end

% Well-formed but for what HTML lets stand open, without anything from elsewhere, and with all findings.
function the_report_is_one_file_with_every_finding(toolbox)
    global fault
    behind_the_faulty_one();
    fault = struct('command', 22, 'property', 'density', 'alter', @(v, g) v * 0.016);
    file = [tempname(), '.html'];
    report = quick_check('Checks', {'volumes', 'energies'}, 'Report', file);
    fault = [];
    text = fileread(file);
    delete(file);
    check(~isempty(strfind(text, '<p class="verdict failures">')), 'no verdict');
    for finding = report.findings
        for line = [{finding.what, finding.where}, finding.lines(:).']
            shown = strrep(strrep(strrep(strrep(line{1}, '&', '&amp;'), '<', '&lt;'), '>', '&gt;'), '"', '&quot;');
            check(~isempty(strfind(text, shown)), 'the report has not "%s"', line{1});
        end
    end
    states = unique([vertcat(report.findings.T), vertcat(report.findings.P)], 'rows');
    check(numel(strfind(text, '<circle class="beyond"')) == size(states, 1), 'not every failure is on the map');
    check(isempty(regexp(text, 'src=|href="[^#]|url\(|<script', 'once')), 'something comes from elsewhere');
    for tag = {'section', 'pre', 'svg', 'table', 'ol', 'li', 'p', 'tr', 'td', 'h3', 'style', 'html'}
        opened = numel(regexp(text, ['<', tag{1}, '[ >]'], 'match'));
        check(opened > 0 && opened == numel(strfind(text, ['</', tag{1}, '>'])), '<%s> is not closed', tag{1});
    end
end

function options_are_checked(toolbox)
    open = @(varargin) capeOpenCheck('Verdanth Reference Packages', 'Natural gas', varargin{:});
    cases = {'Check', 'No check "..."; there are ...', @() open('Checks', {'x'})
             'Check', 'Expected compositions with a fraction for each of the ... compounds', @() open('Compositions', [1, 2])
             'Check', 'Expected an option and its value, not ...', @() open('Chekcs', {'x'})
             'Check', 'Expected ''quick'' or ''full'' as Level', @() open('Level', 'fast')
             'Check', 'Expected the lowest and the highest value as ...', @() open('TRange', [300, 200])
             'Check', 'Expected the lowest and the highest value as ...', @() open('PRange', 1e5)
             'Check', 'Expected a number as Seed', @() open('Seed', NaN)
             'Check', '"..." can not be written: ...', ...
                 @() open('Report', fullfile(tempname(), 'x.html'), 'Checks', 'casNumbers', 'Level', 'quick', 'Quiet', true)
             'Check', 'Expected a package: its manager and its name, or a handle', @() capeOpenCheck('Level', 'quick')};
    check_messages(toolbox, cases);
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    for action = {@() open('Chekcs', {'x'}), @() capeOpenCheck(h, 'Chekcs', {'x'})}
        message = message_of(action{1});
        check(~isempty(regexp(message, ', not 1-by-6 char$', 'once')), message);
    end
    Z = mixture(h, 'methane', 0.7, 'propane', 0.3);
    report = capeOpenCheck(h, 'Compositions', Z, 'TRange', [200, 250], 'PRange', [1e5, 1e6], 'Checks', 'flashes', ...
                           'Quiet', true);
    check(all([report.flashes.T] >= 200 & [report.flashes.T] <= 250) && all([report.flashes.P] <= 1e6), 'other ranges');
    check(isequal(vertcat(report.flashes.Z), repmat(Z, numel(report.flashes), 1)), 'another composition');
    check(strcmp(report.opening, 'handle = capeOpenCreate(''Verdanth Reference Packages'', ''Natural gas'');'), ...
          report.opening);
end

% Its table has a row for each, in their order.
function the_guide_tells_of_every_check(toolbox)
    names = names_of_checks();
    page = fileread(fullfile(fileparts(toolbox), 'docs', 'pages', 'checking.md'));
    rows = regexp(page, '^\| `(\w+)` \|', 'tokens', 'lineanchors');
    check(numel(names) > 20 && isequal([rows{:}], names), 'its rows are %s', strjoin([rows{:}], ', '));
end

function names = names_of_checks()
    message = message_of(@() quick_check('Checks', {'x'}));
    names = strsplit(regexprep(message, '^.*there are ', ''), ', ');
end

run_test(argv());
