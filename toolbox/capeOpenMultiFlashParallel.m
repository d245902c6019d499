function varargout = capeOpenMultiFlashParallel(manager, package, varargin)
%capeOpenMultiFlashParallel  Phase equilibria over arrays of conditions, on several processors.
%
%   [r1, r2, ...] = capeOpenMultiFlashParallel(manager, package, Z, name1, values1, name2, values2, solution, names)
%
%   Gives what capeOpenMultiFlash gives, number for number. It cuts the rows
%   into blocks, and workers calculate these at the same time, each with a
%   package of its own: in MATLAB those of the parallel pool, in Octave those
%   of the package parallel. Where there is neither, and for a single row, it
%   works without. It pays for many rows.
%
%   Arguments:
%     manager  text, a name that capeOpenManagerList gives
%     package  text, a name that capeOpenPackageList gives for the manager;
%             '' for a stand-alone package
%     Z       overall compositions, double N-by-n or 1-by-n, a column for each
%             compound: mole fractions, in mass basis mass fractions
%     name1   first specification: a name that capeOpenFlashPropList gives
%     values1
%             its values, double N-by-1 or scalar
%     name2   second specification
%     values2
%             its values, double N-by-1 or scalar
%     solution
%             which of several solutions is wanted: 'Unspecified', 'Normal',
%             'Retrograde' or another word that the package knows
%     names   what to report: names that capeOpenFlashPropList gives, as a
%             text with blanks between the names, or a cell array of texts
%
%   Results:
%     r1, r2  double N-by-1, one for each name in its order. A row whose flash
%             failed holds NaN, and a warning tells why.
%
%   A bar shows the progress. Workers keep the package open, so that the next
%   call finds it. A block in which something failed is calculated a second
%   time by capeOpenMultiFlash, whose warnings are then seen.
%
%   Errors:
%     'Invalid number of arguments for capeOpenMultiFlashParallel'
%             There are fewer than have to be given.
%     'no such package manager: "..."'
%             This and the other errors of capeOpenCreate are possible.
%     'Inconsistent number of rows for compositions and constraint values'
%             Two arguments have more than one row, and not the same number.
%             This and the other errors of capeOpenMultiFlash are possible.
%
%   Example:
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     T = linspace(180, 300, 2000).';
%     [fraction, enthalpy] = capeOpenMultiFlashParallel( ...
%         'Verdanth Reference Packages', 'Natural gas', X, ...
%         'Temperature', T, 'Pressure', 40e5, 'Unspecified', ...
%         'vaporFraction enthalpy');
%     fraction([1 end])
%
%   See also capeOpenMultiFlash, capeOpenCreate, capeOpenBasis.
if nargin < 2
    error('Verdanth:error', 'Invalid number of arguments for capeOpenMultiFlashParallel');
end
p = capeopen.Package(manager, package); % its errors come before any worker starts
outputs = max(nargout, 1);
varargout = cell(1, outputs);
rows = commonRows(varargin);
workers = numberOfWorkers();
if isempty(rows) || workers < 2
    [varargout{:}] = capeOpenMultiFlash(p.Handle, varargin{:});
    return
end

blocks = min(rows, 8 * workers);
last = round(rows * (1:blocks) / blocks);
first = [1, last(1:end - 1) + 1];
mass = strcmp(capeOpenPropUnit('density'), 'kg / m3');
jobs = arrayfun(@(k) struct('manager', manager, 'package', package, 'mass', mass, 'outputs', outputs, 'number', k, ...
                            'given', {rowsOf(varargin, first(k), last(k))}), 1:blocks, 'UniformOutput', false);
outcomes = runBlocks(jobs, workers);
values = zeros(rows, outputs);
for k = 1:blocks
    block = outcomes(k).values;
    if ~outcomes(k).clean
        again = cell(1, outputs);
        [again{:}] = capeOpenMultiFlash(p.Handle, jobs{k}.given{:});
        block = [again{:}];
    end
    values(first(k):last(k), :) = block;
end
varargout = num2cell(values, 1);
end

% The number of rows if there are two or more and all arguments agree about it; the library finds fault with the rest.
function rows = commonRows(given)
rows = [];
if numel(given) < 7
    return
end
counts = cellfun(@(column) size(column, 1), given([1, 3, 5]));
several = counts(counts ~= 1);
if ~isempty(several) && all(several == several(1)) && several(1) > 1
    rows = several(1);
end
end

function given = rowsOf(given, first, last)
for k = [1, 3, 5]
    if size(given{k}, 1) > 1
        given{k} = given{k}(first:last, :);
    end
end
end

% 1 where nothing runs beside this process.
function workers = numberOfWorkers()
workers = 1;
if exist('OCTAVE_VERSION', 'builtin')
    if ~exist('parcellfun', 'file')
        try
            pkg('load', 'parallel');
        catch
            return % it is not installed
        end
    end
    workers = nproc();
elseif exist('gcp', 'file')
    pool = gcp();
    if ~isempty(pool)
        workers = pool.NumWorkers;
    end
end
end

function outcomes = runBlocks(jobs, workers)
blocks = numel(jobs);
progressBar(0, blocks);
if exist('OCTAVE_VERSION', 'builtin')
    outcomes = parcellfun(workers, @capeopen.internal.flashBlock, jobs, ...
                          'CumFunc', @(all, one) joined(all, one, blocks));
    progressBar(1, blocks); % the first is joined to nothing
    [~, order] = sort([outcomes.number]);
    outcomes = outcomes(order);
else
    outcomes = repmat(struct('number', 0, 'values', [], 'clean', true), 1, blocks);
    queue = [];
    if exist('parallel.pool.DataQueue', 'class')
        queue = parallel.pool.DataQueue();
        afterEach(queue, @(count) progressBar(count, blocks));
    end
    parfor k = 1:blocks
        outcomes(k) = capeopen.internal.flashBlock(jobs{k});
        if ~isempty(queue)
            send(queue, 1);
        end
    end
    if isempty(queue)
        progressBar(blocks, blocks);
    end
end
end

function all = joined(all, one, blocks)
progressBar(numel(one), blocks);
all = [all, one];
end
