function report = capeOpenCheck(varargin)
%capeOpenCheck  Check of a property package: what it offers, and whether its numbers fit together.
%
%   report = capeOpenCheck(manager, package)
%   report = capeOpenCheck(handle)
%   report = capeOpenCheck(..., name, value, ...)
%   report = capeOpenCheck('last')
%
%   Asks a package for what it lists, compares its values with each other and
%   with differences of each other, solves flashes and looks whether their
%   results are equilibria, and makes mistakes on purpose to see what it says.
%   A finding tells what does not hold, where, how far it is off, which limit
%   that is beyond, and the lines to type that show it. Limits come from the
%   arithmetic of each comparison and stand in the finding. A summary is shown.
%   The time of calls, and the memory that many of them take, is measured, too.
%
%   Arguments:
%     manager  text, a name that capeOpenManagerList gives
%     package  text, a name that capeOpenPackageList gives for the manager; left
%             out for a stand-alone package
%     handle  int32 scalar from capeOpenCreate, or a capeopen.Package
%
%   Names and values:
%     'Compositions'
%             compositions of the sample, double m-by-n, mole fractions; by
%             default equal and random fractions, one with a trace and a zero,
%             pairs, and pure compounds
%     'TRange', 'PRange'
%             lowest and highest temperature in K and pressure in Pa of the
%             sample; by default around the critical ones of each composition,
%             with one near saturation
%     'Level' 'quick' for a small sample, or 'full', which is the default
%     'Seed'  a number from which the random parts of the sample come; 1 by
%             default
%     'Checks'
%             names of checks, cell array of texts; all by default
%     'Report'
%             name of an HTML file to write, with everything in it
%     'Parallel'
%             true to have the checks done by the workers that there are for
%             capeOpenMultiFlashParallel, each with a package of its own; what
%             measures time and memory is done afterwards, alone
%     'Quiet' true to show no summary
%
%   Results:
%     report  struct with the fields
%             verdict   'passed', 'notes' or 'failures'
%             findings  struct array with a finding each: check, severity
%                       ('failure' or 'note'), what, where, count (states that
%                       fail) of asked, size of the largest deviation, its
%                       limit, lines (cell array of texts), T and P of all
%                       states that fail
%             checks    struct array with name, title, asked, skipped,
%                       failures, notes, seconds, and bars: the largest
%                       deviations as parts of their limits
%             times     struct array with a kind of call each: kind, calls
%                       (how many for one state were timed), median and worst
%                       in s, and what a batch takes once (call) and for each
%                       state (row), NaN where there are no batches
%             memory    struct array with a kind of call each: kind, calls,
%                       perCall (bytes by which the process has grown), and
%                       why it is NaN: packages are in another process, or the
%                       system does not tell
%             package, opening (the line that opens it), compounds, level,
%             seed, flashes (the sample), pairs (of specifications that were
%             solved), complete, seconds
%
%   The basis is mole during the check, and warnings are off. Ctrl-C stops
%   it; capeOpenCheck('last') gives what was done.
%
%   Errors:
%     'Invalid property package handle'
%             The package is not open. This and the errors of capeOpenCreate
%             are possible.
%     'Expected a package: its manager and its name, or a handle'
%             No argument tells it.
%     'Expected compositions with a fraction for each of the ... compounds'
%             Compositions are something else.
%     'No check "..."; there are ...'
%             Checks has a name that is none.
%     'Expected 'quick' or 'full' as Level'
%     'Expected the lowest and the highest value as ...'
%     'Expected a number as Seed'
%     'Expected true or false as Parallel'
%             Level, TRange, PRange, Seed or Parallel is something else.
%     '"..." can not be written: ...'
%             The file of Report; capeOpenCheck('last') gives what was found.
%     'Expected an option and its value, not ...'
%             An argument is none of those above.
%
%   Example:
%     report = capeOpenCheck('Verdanth Reference Packages', 'Natural gas', ...
%         'Level', 'quick', 'Checks', {'volumes', 'energies'});
%     report.verdict
%
%   See also capeOpenCreate, capeopen.Package.
if nargin == 1 && isequal(capeopen.internal.charsOf(varargin{1}), 'last')
    report = checkKept('last');
    return
end
defaults = struct('Compositions', [], 'TRange', [], 'PRange', [], 'Level', 'full', 'Seed', 1, 'Checks', {{}}, ...
                  'Report', '', 'Quiet', false, 'Parallel', false);
[given, options] = capeopen.internal.options(varargin, defaults);
options = checkOptions(options);
if ~isscalar(options.Parallel) || ~(islogical(options.Parallel) || isnumeric(options.Parallel))
    error('Verdanth:error', 'Expected true or false as Parallel');
end
[handle, opening, owner, names] = checkedPackage(given); %#ok<ASGLU> the owner closes it
if ~options.Parallel
    names = {};
end
report = checkRun(handle, opening, options, askedFor(options.Checks), names);
if ~isempty(options.Report)
    checkReport(report, capeopen.internal.charsOf(options.Report));
end
if ~options.Quiet
    checkSummary(report);
end
if nargout == 0
    clear('report');
end
end

% The rows of the table of checks that have these names; all, if there are none.
function table = askedFor(names)
table = checkTable();
names = capeopen.internal.charsOf(names);
if isempty(names)
    return
end
names = cellstr(names);
wrong = names(~ismember(names, table(:, 1)));
if ~isempty(wrong)
    error('Verdanth:error', 'No check "%s"; there are %s', wrong{1}, strjoin(table(:, 1).', ', '));
end
table = table(ismember(table(:, 1), names), :);
end
