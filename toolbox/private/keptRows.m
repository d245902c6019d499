function [values, more] = keptRows(action, varargin)
%keptRows  Holds the rows of a batch that are done, beyond an interrupt.
%
%   batch = keptRows('begin', rows, outputs)
%   keptRows('add', batch, first, values, notes)
%                                         what flashOnce gave for a block that begins with this row; it counts for
%                                         nothing where any of its rows is done, or when its batch has ended
%   stretches = keptRows('left')          first and last rows, m-by-2, of what is not done
%   [values, notes] = keptRows('end')     all of it; the batch is no longer to be called stopped
%   keptRows('stopped', batch, name)      says that this function was stopped, if the batch has had no end
%   [values, done] = keptRows('last')     what is there: NaN in rows that are not done
%
%   A worker can be this process; then its batch lies within another, which goes on behind it.
persistent number batches
values = zeros(0, 0);
if strcmp(action, 'begin')
    number = sum([number, 1]);
    values = number;
    if isempty(batches) || ~batches{end}.running
        batches = {};
    end
    batches{end + 1} = struct('number', number, 'running', true, 'rows', varargin{1}, 'outputs', varargin{2}, ...
                              'firsts', [], 'blocks', {{}}, 'notes', {{}});
elseif strcmp(action, 'last')
    more = false(0, 1);
    if ~isempty(batches)
        [values, more] = whatIsThere(batches{1});
    end
elseif strcmp(action, 'add')
    if ~isempty(batches) && batches{end}.running && batches{end}.number == varargin{1} ...
            && isLeft(batches{end}, varargin{2:3})
        batches{end} = added(batches{end}, varargin{2:4});
    end
elseif strcmp(action, 'left')
    values = left(batches{end});
elseif strcmp(action, 'end')
    if nargout > 0
        [values, more] = whole(batches{end});
    end
    batches = ended(batches, nargout == 0);
elseif strcmp(action, 'stopped') && ~isempty(batches) && batches{end}.number == varargin{1} && batches{end}.running
    if isscalar(batches)
        fprintf('%s was stopped: %d of %d rows are done, capeOpenLastResults gives them\n', varargin{2}, ...
                sum([0, cellfun('size', batches{1}.blocks, 1)]), batches{1}.rows);
    end
    batches = ended(batches, true);
end
end

function batch = added(batch, first, values, notes)
batch.firsts(end + 1) = first;
batch.blocks{end + 1} = values;
if ~isempty(notes)
    for field = {'rows', 'first', 'last'}
        notes.(field{1}) = notes.(field{1}) + (first - 1);
    end
    batch.notes{end + 1} = notes;
end
batchProgress(sum(cellfun('size', batch.blocks, 1)), batch.rows);
end

% Whether all rows of a block are still to be done. Blocks are cut anew when a worker is lost, and messages of the old
% ones may still come.
function answer = isLeft(batch, first, values)
stretches = left(batch);
answer = any(stretches(:, 1) <= first & stretches(:, 2) >= first + size(values, 1) - 1);
end

function stretches = left(batch)
[from, order] = sort(batch.firsts);
lengths = cellfun('size', batch.blocks(order), 1);
stretches = [[1; from(:) + lengths(:)], [from(:) - 1; batch.rows]];
stretches = stretches(stretches(:, 1) <= stretches(:, 2), :);
end

function [values, notes] = whole(batch)
[~, order] = sort(batch.firsts);
values = vertcat(batch.blocks{order});
notes = joinedNotes(batch.notes);
end

function batches = ended(batches, keep)
batches{end}.running = false;
if numel(batches) > 1 || ~keep
    batches(end) = [];
end
end

function [values, done] = whatIsThere(batch)
values = NaN(batch.rows, batch.outputs);
done = false(batch.rows, 1);
for k = 1:numel(batch.blocks)
    at = batch.firsts(k) + (0:size(batch.blocks{k}, 1) - 1);
    values(at, :) = batch.blocks{k};
    done(at) = true;
end
end
