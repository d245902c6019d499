function flashSlice(file, slice, slices)
% One job of an array: flashes for a slice of the rows of a file of conditions.
%
%   flashSlice(file, slice, slices)
%
%   Rows of the FILE are a temperature (K) and a pressure (Pa). SLICE is a number from 1 to SLICES. Results go into a
%   file beside it, like 'conditions.3.csv': number of the row, vapor fraction and enthalpy (J/mol). See jobArray.
addpath(fileparts(fileparts(mfilename('fullpath'))));
Z = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
conditions = dlmread(file);
rows = (slice:slices:size(conditions, 1)).'; % hard and easy ones for each
p = capeopen.Package('Verdanth Reference Packages', 'Natural gas');
[fraction, enthalpy, texts] = p.multiflash(Z, 'Temperature', conditions(rows, 1), 'Pressure', conditions(rows, 2), ...
                                           'vaporFraction enthalpy');
failed = find(~cellfun('isempty', texts));
for k = 1:numel(failed)
    fprintf('row %d: %s\n', rows(failed(k)), texts{failed(k)}); % to be found in the output of the job
end
[folder, name] = fileparts(file);
target = fullfile(folder, sprintf('%s.%d', name, slice));
dlmwrite([target '.part'], [rows, fraction, enthalpy], 'precision', '%.17g');
movefile([target '.part'], [target '.csv']); % a job that was ended leaves no half of a file
end
