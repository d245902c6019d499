function flash = sampledFlash(s, Z, T, P)
%sampledFlash  A flash of a sample: phases, their fractions and compositions, or the first words of why it fails.
flash = struct('Z', Z, 'T', T, 'P', P, 'phases', {{}}, 'fractions', [], 'X', [], 'Tr', NaN, 'Pr', NaN, 'problem', '');
try
    [flash.phases, flash.fractions, flash.X, flash.Tr, flash.Pr] = capeOpenFlash(s.handle, Z, 'Temperature', T, ...
        'Pressure', P, 'Unspecified');
catch problem
    flash.problem = strtok(problem.message, sprintf('\n'));
end
end
