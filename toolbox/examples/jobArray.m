% A batch on a cluster with a queue system: an array of jobs, each with a slice of a file of conditions.
%
%   No connection between the machines is needed, only a folder that all of them see. With Slurm, the script of a job is
%
%     #!/bin/sh
%     #SBATCH --array=1-4
%     octave-cli --eval "flashSlice('conditions.csv', $SLURM_ARRAY_TASK_ID, 4)"
%
%   or, with MATLAB, matlab -batch "flashSlice('conditions.csv', $SLURM_ARRAY_TASK_ID, 4)". Other queues have the number
%   in PBS_ARRAY_INDEX, SGE_TASK_ID or LSB_JOBINDEX. When the jobs are done, joinSlices puts their results together.
%   Here they run one after the other, and the third is lost at first.
examples = fileparts(mfilename('fullpath'));
addpath(fileparts(examples), examples);
folder = tempname();
mkdir(folder);
file = fullfile(folder, 'conditions.csv');
T = linspace(180, 300, 121);          % K
P = [10 20 40 60] * 1e5;              % Pa
[allT, allP] = meshgrid(T, P);
dlmwrite(file, [allT(:), allP(:)], 'precision', '%.17g');

slices = 4;
for slice = [1 2 4] % what the queue does
    flashSlice(file, slice, slices);
end
[results, missing] = joinSlices(file, slices);
fprintf('%d of %d rows are there; slice %d is missing\n', sum(~isnan(results(:, 1))), size(results, 1), missing);
flashSlice(file, missing, slices);
[results, missing] = joinSlices(file, slices);
fprintf('now %d of %d rows are there; %d slices are missing\n', sum(~isnan(results(:, 1))), size(results, 1), ...
        numel(missing));

p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
Z = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0]; % as in flashSlice
[fraction, enthalpy] = p.multiflash(Z, 'Temperature', allT(:), 'Pressure', allP(:), 'vaporFraction enthalpy');
fprintf('largest difference from a single call: %g\n', max(max(abs(results - [fraction, enthalpy]))));

figure();
plot(T, reshape(results(:, 1), size(allT)).');
title('Vapor of a natural gas, from four jobs');
xlabel('temperature / K');
ylabel('vapor fraction');
legend(arrayfun(@(value) sprintf('%g bar', value / 1e5), P, 'UniformOutput', false), 'Location', 'southeast');
rmdir(folder, 's');
