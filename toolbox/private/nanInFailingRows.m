function values = nanInFailingRows(given, count, call)
%nanInFailingRows  Properties of a phase, with NaN in the rows at which the package fails.
%
%   VALUES, a cell for each of COUNT names, is what CALL gives for the arguments GIVEN of capeOpenSinglePhaseProp. The
%   rows are halved until what fails is a row by itself, so that the others are calculated in as few calls as can be.
rows = cellfun(@(x) size(x, 1), given(3:5));
[parts, failed] = partsOf(1, max(rows));
some = find(~failed, 1);
if ~isempty(some)
    none = cellfun(@(value) NaN(1, size(value, 2)), parts{some}, 'UniformOutput', false);
else
    none = atOrdinaryConditions();
end
parts(failed) = {none};
values = cell(count, 1);
for k = 1:count
    blocks = cellfun(@(part) part{k}, parts, 'UniformOutput', false);
    values{k} = vertcat(blocks{:});
end

    function [parts, failed] = partsOf(first, last)
        part = given;
        for argument = 2 + find(rows > 1)
            part{argument} = part{argument}(first:last, :);
        end
        failed = false;
        parts = {{}};
        try
            parts = {call(part)};
        catch problem
            if ~strncmp(problem.message, 'CalcSinglePhaseProp failed', 26)
                rethrow(problem);
            end
            failed = true;
        end
        if failed && first < last
            middle = floor((first + last) / 2);
            [parts, failed] = partsOf(first, middle);
            [more, others] = partsOf(middle + 1, last);
            parts = [parts, more];
            failed = [failed, others];
        end
    end

    % No row tells what the results look like: they are asked for where a package should have them.
    function none = atOrdinaryConditions()
        compounds = size(given{5}, 2);
        try
            none = call([given(1:2), {300, 1e5, ones(1, compounds) / compounds}, given(6)]);
            none = cellfun(@(value) NaN(size(value)), none, 'UniformOutput', false);
        catch
            none = repmat({NaN}, count, 1);
        end
    end
end
