function flash = sampledFlash(s, Z, T, P, given)
%sampledFlash  A flash of a sample: phases, their fractions and compositions, or the first words of why it fails.
%
%   It is one at T and P, or by other specifications GIVEN, with the solution type.
if nargin < 5
    given = {'Temperature', T, 'Pressure', P, 'Unspecified'};
end
flash = struct('Z', Z, 'T', T, 'P', P, 'phases', {{}}, 'fractions', [], 'X', [], 'Tr', NaN, 'Pr', NaN, 'problem', '');
try
    [flash.phases, flash.fractions, flash.X, flash.Tr, flash.Pr] = capeOpenFlash(s.handle, Z, given{:});
catch problem
    flash.problem = strtok(problem.message, sprintf('\n'));
end
end
