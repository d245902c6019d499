function result = capeOpenCompare(varargin)
%capeOpenCompare  The same sample through two property packages: where they differ, and by how much.
%
%   result = capeOpenCompare(p1, p2)
%   saved = capeOpenCompare(p1)
%   result = capeOpenCompare(saved, p2)
%   ... = capeOpenCompare(..., name, value, ...)
%
%   Asks two packages for constants, properties of pure compounds, properties
%   of phases, and flashes at the same states, for the compounds that both
%   have, and tells where the results differ. Compounds are the same if their
%   CAS numbers are. With one package the values are given back, and may be
%   kept in a file: what a package gave before an update, for example, to be
%   compared with what it gives afterwards. A summary is shown.
%
%   The states are those of capeOpenCheck, from flashes of the first package;
%   both are asked for the phases that it finds.
%
%   Arguments:
%     p1, p2  a handle from capeOpenCreate, a capeopen.Package, or the name of
%             a package manager and of its package in a cell array; a text for
%             a stand-alone package. p1 may be what was saved of the package.
%
%   Names and values:
%     'Compositions'
%             compositions of the sample, double m-by-n, mole fractions of the
%             first package's compounds; by default as in capeOpenCheck
%     'TRange', 'PRange'
%             lowest and highest temperature in K and pressure in Pa of the
%             sample; by default around the critical ones of each composition
%     'Level' 'quick' for a small sample, or 'full', which is the default
%     'Seed'  a number from which the random parts of the sample come; 1 by
%             default
%     'Tolerance'
%             the largest part of a value that is no difference; 1e-9 by
%             default, which is more than rounding
%     'Quiet' true to show no summary
%
%   Results:
%     result  struct with the fields
%             rows      struct array with a difference each, the largest
%                       first: kind ('constant', 'TDependent', 'PDependent',
%                       'phase' or 'flash'), property, phase, compound, T and
%                       P (lowest and highest where it differs), count (values
%                       that differ) of asked, size (the largest difference,
%                       as a part of the value; of phase fractions and of
%                       compositions the difference itself; Inf where one
%                       package alone has a number), typical (the median of
%                       those that differ), where, and both values as texts.
%                       Compounds have a row each, phases and flashes one for
%                       each third of the temperatures and pressures.
%             packages, compounds (of both), compoundsOfOne, propertiesOfOne,
%             phasesOfOne (what the first or second alone has), asked,
%             options, seconds
%     saved   struct to be given as p1 later
%
%   The basis is mole meanwhile, and warnings are off. To the value of which
%   SIZE is a part, R T is added for an energy, since it is zero somewhere, R
%   for an entropy, 1 for a logarithm, and for a derivative the property that
%   it is of, over T or P.
%
%   Errors:
%     'Expected a package, or what capeOpenCompare saved of one, not ...'
%             An argument is something else.
%     'Expected one or two packages, not ...'
%             There are none or more, or an option has another name.
%     'The values were saved of "...", not of "..."'
%             The saved values are of another package.
%     'The values were saved of another sample: ... was another'
%             An option is not the one with which they were saved; without
%             options it is theirs that hold.
%     'The packages have no compound in common'
%             No CAS number of one is that of a compound of the other.
%     'Expected compositions of compounds that both packages have'
%             Compositions have others, too.
%     'Expected a number that is not negative as Tolerance'
%             It is something else. The errors of capeOpenCheck and
%             capeOpenCreate are possible, too.
%
%   Example:
%     result = capeOpenCompare({'Verdanth Reference Packages', 'Natural gas'}, ...
%         {'Verdanth Reference Packages', 'Refinery gas'}, 'Level', 'quick');
%     result.rows(1).property
%
%   See also capeOpenCheck, capeOpenCreate, capeopen.Package.
defaults = struct('Compositions', [], 'TRange', [], 'PRange', [], 'Level', '', 'Seed', [], 'Tolerance', 1e-9, ...
                  'Quiet', false);
[given, options] = capeopen.internal.options(varargin, defaults);
if isempty(given) || numel(given) > 2
    error('Verdanth:error', 'Expected one or two packages, not %d %s', numel(given), plural(numel(given), 'argument'));
end
begun = tic();
saved = [];
if isstruct(given{1}) && isfield(given{1}, 'madeBy') && isequal(given{1}.madeBy, 'capeOpenCompare')
    saved = given{1};
end
options = compareOptions(options, saved);
restore = moleBasis(); %#ok<NASGU>
silent = withoutWarnings(); %#ok<NASGU>
if numel(given) == 1
    [handle, opening, owner] = packageOf(given{1}); %#ok<ASGLU> the owner closes it
    result = compareMeasured(handle, opening, options, 1:numel(capeOpenCompoundList(handle)));
    return
end
[second, ~, ownerOfSecond] = packageOf(given{2}); %#ok<ASGLU>
casOfSecond = casOf(second);
if isempty(saved)
    [handle, opening, owner] = packageOf(given{1}); %#ok<ASGLU>
    [known, casOfKnown] = deal(capeOpenCompoundList(handle), casOf(handle));
    both = inBoth(casOfKnown, casOfSecond);
    saved = compareMeasured(handle, opening, options, both);
else
    if ~strcmp(saved.package, capeOpenName(second))
        error('Verdanth:error', 'The values were saved of "%s", not of "%s"', saved.package, capeOpenName(second));
    end
    [known, casOfKnown] = deal(saved.compounds, saved.cas);
    both = inBoth(casOfKnown, casOfSecond);
    saved = compareTrimmed(saved, both);
end
[~, index] = ismember(saved.cas, casOfSecond);
s = packageLists(second);
own = comparePhases(second, saved.phases, saved.states);
series = compareAsked(s, saved.series, index, saved.phases, own);
[rows, asked] = compareRows(saved.series, series, saved.compounds, options.Tolerance);
alone = {known, s.compounds};
alone{1}(both) = [];
alone{2}(index) = [];
[properties, phases] = ofOne(saved, s, own);
result = struct('rows', rows, 'packages', {{saved.package, capeOpenName(second)}}, 'compounds', {saved.compounds}, ...
                'compoundsOfOne', {alone}, 'propertiesOfOne', {properties}, 'phasesOfOne', {phases}, 'asked', asked, ...
                'options', options, 'seconds', toc(begun));
if ~options.Quiet
    compareSummary(result);
end
if nargout == 0
    clear('result');
end
end

function [handle, opening, owner] = packageOf(given)
if ~iscell(given)
    given = {given};
end
if isstruct(given{1})
    error('Verdanth:error', 'Expected a package, or what capeOpenCompare saved of one, not %s', described(given{1}));
end
[handle, opening, owner] = checkedPackage(given);
end

function both = inBoth(cas, others)
both = find(ismember(cas, others) & ~strcmp(cas, ''));
if isempty(both)
    error('Verdanth:error', 'The packages have no compound in common');
end
end

% What the first, and the second, lists alone.
function [properties, phases] = ofOne(saved, s, own)
phases = {saved.phases(strcmp(own, '')), s.phases(~ismember(s.phases, own))};
names = {unique({saved.series(~strcmp({saved.series.kind}, 'flash')).property}), ...
         unique([s.constants(:); s.T(:); s.P(:); s.single(:)]).'};
properties = {names{1}(~ismember(lower(names{1}), lower(names{2}))), ...
              names{2}(~ismember(lower(names{2}), [lower(names{1}), {'casregistrynumber'}]))};
end
