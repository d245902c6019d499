function tally = checkFormulas(s, tally)
%checkFormulas  Molecular weights against the sum of the atoms in the formulas.
%
%   The limit is 0.02 g/mol and 2e-4 of the weight: older tables of atomic weights differ by less.
if ~all(ismember({'chemicalformula', 'molecularweight'}, lower(s.constants)))
    return
end
formulas = capeOpenConstant(s.handle, 'chemicalFormula');
weights = capeOpenConstant(s.handle, 'molecularWeight');
atoms = atomicWeights();
for k = 1:numel(formulas)
    parts = regexp(formulas{k}, '([A-Z][a-z]?)(\d*\.?\d*)', 'tokens');
    text = cellfun(@(part) [part{:}], parts, 'UniformOutput', false);
    if isempty(parts) || ~strcmp([text{:}], formulas{k}) || ~all(cellfun(@(part) isfield(atoms, part{1}), parts))
        tally.skipped = tally.skipped + 1; % a formula of groups, or none
        continue
    end
    counts = cellfun(@(part) max([str2double(part{2}), isempty(part{2})]), parts);
    expected = sum(counts .* cellfun(@(part) atoms.(part{1}), parts));
    deviation = abs(weights(k) - expected);
    limit = 0.02 + 2e-4 * expected;
    lines = {s.opening; 'weights = capeOpenConstant(handle, ''molecularWeight'');'
             sprintf('deviation = abs(weights(%d) - %.6f) %% %s', k, expected, ...
                 formulas{k}); sprintf('limit = %.6f', limit)};
    tally = checkCompared(tally, 'failure', sprintf('The molecular weight of %s is not that of %s', s.compounds{k}, ...
        formulas{k}), deviation, limit, [], @(row) lines);
end
end

% Standard atomic weights of IUPAC, 2021, abridged.
function atoms = atomicWeights()
atoms = struct('H', 1.008, 'D', 2.0141, 'He', 4.0026, 'Li', 6.94, 'Be', 9.0122, 'B', 10.81, 'C', 12.011, 'N', ...
    14.007, 'O', 15.999, 'F', 18.998, 'Ne', 20.180, 'Na', 22.990, 'Mg', 24.305, 'Al', 26.982, 'Si', 28.085, 'P', ...
        30.974, 'S', 32.06, 'Cl', 35.45, 'Ar', 39.95, 'K', 39.098, 'Ca', 40.078, 'Ti', 47.867, 'V', 50.942, 'Cr', ...
            51.996, 'Mn', 54.938, 'Fe', 55.845, 'Co', 58.933, 'Ni', 58.693, 'Cu', 63.546, 'Zn', 65.38, 'Ga', ...
                69.723, 'Ge', 72.630, 'As', 74.922, 'Se', 78.971, 'Br', 79.904, 'Kr', 83.798, 'Ag', 107.87, 'Cd', ...
                    112.41, 'Sn', 118.71, 'Sb', 121.76, 'Te', 127.60, 'I', 126.90, 'Xe', 131.29, 'Cs', 132.91, ...
                        'Ba', 137.33, 'W', 183.84, 'Pt', 195.08, 'Au', 196.97, 'Hg', 200.59, 'Pb', 207.2, 'U', 238.03);
end
