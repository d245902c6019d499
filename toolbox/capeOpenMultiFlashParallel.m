function varargout = capeOpenMultiFlashParallel(manager, package, varargin)
%capeOpenMultiFlashParallel  Phase equilibria over arrays of conditions, on several processors.
%
%   [r1, r2, ...] = capeOpenMultiFlashParallel(manager, package, Z, name1, values1, name2, values2, solution, names)
%   [r1, r2, ...] = capeOpenMultiFlashParallel(..., names, servers)
%
%   Gives what capeOpenMultiFlash gives, number for number. It cuts the rows
%   into blocks, and workers calculate these at the same time, each with a
%   package of its own: in MATLAB those of the parallel pool, also of one on a
%   cluster, in Octave those of the package parallel. Where there is neither,
%   and for what takes less than a second, it works without.
%
%   Arguments:
%     manager  text, a name that capeOpenManagerList gives
%     package  text, a name that capeOpenPackageList gives for the manager;
%             '' for a stand-alone package
%     Z       overall compositions, double N-by-n or 1-by-n, a column for each
%             compound: mole fractions, in mass basis mass fractions. They may
%             be given by names, as capeOpenComposition takes them.
%     name1   first specification: a name that capeOpenFlashPropList gives
%     values1
%             its values, double N-by-1 or scalar
%     name2   second specification
%     values2
%             its values, double N-by-1 or scalar
%     solution
%             which of several solutions is wanted: 'Unspecified', 'Normal',
%             'Retrograde' or another word that the package knows. It may be
%             left out.
%     names   what to report: names that capeOpenFlashPropList gives, as a
%             text with blanks between the names, or a cell array of texts
%     servers
%             in Octave, connections that pconnect gave to servers on other
%             machines, where Verdanth has to be installed
%
%   Results:
%     r1, r2  double N-by-1, one for each name in its order. A row whose flash
%             failed holds NaN.
%     texts   N-by-1 cell array, asked for by one output more than there are
%             names: why a row failed, '' where all is well
%
%   Progress, Ctrl-C and warnings are as with capeOpenMultiFlash. Workers keep
%   the package open, so that the next call finds it. Rows of a worker that dies
%   are calculated by others; an interrupt on servers can look like that, and a
%   second one stops the rest.
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
%   Warnings:
%     'CAPE-OPEN: A worker was lost (...); others calculate what it left, ... rows are to be done'
%             The process of a worker has ended. This and the warnings of
%             capeOpenMultiFlash are possible.
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
%   See also capeOpenMultiFlash, capeOpenLastResults, capeOpenCreate, capeOpenBasis.
if nargin < 2
    error('Verdanth:error', 'Invalid number of arguments for capeOpenMultiFlashParallel');
end
p = capeopen.Package(manager, package); % its errors come before any worker starts
servers = [];
if nargin == 10 || (nargin == 9 && areServers(varargin{7}))
    servers = varargin{end};
    varargin(end) = [];
end
given = batchArguments([{p.Handle}, varargin]);
if numel(given) ~= 8 || isequal(batchRows(given(2:8)), 1)
    [varargout{1:max(nargout, 1)}] = capeOpenMultiFlash(given{:});
    return
end
given = given(2:8);
job = struct('manager', manager, 'package', package, 'mass', capeopen.internal.isMassBasis());
varargout = batchResults(given, nargout, @(outputs, exact) flash(p.Handle, given, job, servers, outputs, exact));
end

% Whether this is not a list of names; without the type of solution, servers stand in its place.
function answer = areServers(x)
answer = ~ischar(x) && ~iscell(x) && ~isa(x, 'string');
end

function [values, notes] = flash(handle, given, job, servers, outputs, exact)
job.outputs = outputs;
job.exact = exact;
names = capeopen.internal.namesOf(given{7});
job.names = names(1:min(outputs, end)); % the next one is a text
helpers = @(batch, seconds) flashOnWorkers(job, batch, given, seconds, servers);
[values, notes] = flashRows(handle, given, outputs, exact, helpers);
if ~exact && ~isempty(notes) && ~warningsAreOn(handle, given) % those of the workers are
    notes = [];
end
end
