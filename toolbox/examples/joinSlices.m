function [results, missing] = joinSlices(file, slices)
% The results of all jobs of an array in one matrix.
%
%   [results, missing] = joinSlices(file, slices)
%
%   Reads what flashSlice wrote for the FILE of conditions. A row of the results belongs to a row of the conditions; it
%   is NaN where a slice is MISSING, whose number is then to be given to flashSlice again.
results = NaN(size(dlmread(file), 1), 2);
missing = [];
[folder, name] = fileparts(file);
for slice = 1:slices
    part = fullfile(folder, sprintf('%s.%d.csv', name, slice));
    if exist(part, 'file')
        values = dlmread(part);
        results(values(:, 1), :) = values(:, 2:end);
    else
        missing(end + 1) = slice; %#ok<AGROW>
    end
end
end
