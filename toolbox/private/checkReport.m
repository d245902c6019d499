function checkReport(report, file)
%checkReport  Writes the report of a check as one HTML file, which needs nothing beside it.
%
%   The verdict, numbers and the worst findings come first, for who decides; then pictures, and each finding with the
%   lines that show it, for the author of the package.
[out, problem] = fopen(file, 'w', 'n', 'UTF-8');
if out < 0
    error('Verdanth:error', '"%s" can not be written: %s', file, problem);
end
closing = onCleanup(@() fclose(out)); %#ok<NASGU>
findings = sorted(report.findings);
title = ['Check of ', report.package];
fprintf(out, '<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n');
fprintf(out, '<meta name="viewport" content="width=device-width, initial-scale=1">\n');
fprintf(out, '<title>%s</title>\n', escapedHtml(title));
fprintf(out, '<style>\n%s</style>\n</head>\n<body>\n<h1>%s</h1>\n', checkStyles(), escapedHtml(title));
fprintf(out, '<p class="verdict %s">%s</p>\n', report.verdict, escapedHtml(verdictText(report)));
worst(out, findings);
asked(out, report);
fprintf(out, '<h2>Checks</h2>\n');
checks(out, report.checks);
fprintf(out, '%s', checkCallsTable(report));
fprintf(out, '<h2>Where it was asked, and what failed</h2>\n%s\n<h2>Findings</h2>\n', checkMap(report));
for k = 1:numel(findings)
    section(out, findings(k), k);
end
if isempty(findings)
    fprintf(out, '<p>None.</p>\n');
end
fprintf(out, '</body>\n</html>\n');
end

% Failures before notes, and those far beyond their limits first.
function findings = sorted(findings)
far = [findings.size] ./ [findings.limit];
far(isnan(far)) = Inf;
[~, order] = sort(-far);
findings = findings(order);
failure = strcmp({findings.severity}, 'failure');
findings = [findings(failure), findings(~failure)];
end

function worst(out, findings)
if isempty(findings)
    return
end
fprintf(out, '<ol class="worst">\n');
for k = 1:min(3, numel(findings))
    fprintf(out, '<li><a href="#finding%d">%s</a><br>%s</li>\n', k, ...
            escapedHtml(shortened(findings(k).what)), escapedHtml(capitalized(circumstances(findings(k)))));
end
fprintf(out, '</ol>\n');
end

% The words of a package may be many; all of them stand below.
function text = shortened(text)
if numel(text) > 160
    text = [text(1:157), '...'];
end
end

function asked(out, report)
names = report.compounds;
shown = strjoin(reshape(names(1:min(12, end)), 1, []), ', ');
if numel(names) > 12
    shown = sprintf('%s and %d more', shown, numel(names) - 12);
end
T = [report.flashes.T];
P = [report.flashes.P];
today = clock();
fprintf(out, ['<p>%d comparisons of %d %s at %d states from %.4g to %.4g K and from %s to %s, in %.1f s on %s ', ...
              '(level %s, seed %g). Compounds: %s.</p>\n'], ...
        sum([report.checks.asked]), numel(report.checks), plural(numel(report.checks), 'check'), numel(T), min(T), ...
        max(T), pressureText(min(P)), pressureText(max(P)), report.seconds, ...
        sprintf('%d-%02d-%02d %02d:%02d', today(1:5)), report.level, report.seed, escapedHtml(shown));
fprintf(out, ['<p>A failure is a value beyond what the arithmetic of its comparison allows, or a call that fails; ', ...
              'a note is for judgment.</p>\n']);
end

function checks(out, checks)
fprintf(out, '<div class="wide">\n<table>\n<tr><th>check</th><th>asked</th><th>failures</th>');
fprintf(out, '<th>notes</th><th>deviation / limit</th><th>time</th></tr>\n');
for check = checks
    fprintf(out, '<tr><td>%s</td><td>%d</td><td>%d</td><td>%d</td><td>%s</td><td>%.1f s</td></tr>\n', ...
            escapedHtml(check.title), check.asked, check.failures, check.notes, bar(check), check.seconds);
end
fprintf(out, '</table>\n</div>\n');
fprintf(out, '<p>The bar is the largest deviation on a scale of powers of ten; the line is the limit.</p>\n');
end

% The largest deviation on a scale of powers of ten from 1e-9 to 1e6 of the limit, which is a line.
function text = bar(check)
text = '';
if isempty(check.bars)
    return
end
ratio = max([check.bars.ratio]);
width = max(1, min(150, 10 * (log10(max(ratio, 1e-9)) + 9)));
class = 'within';
if ratio > 1 && check.failures > 0
    class = 'beyond';
elseif ratio > 1
    class = 'noted';
end
text = sprintf(['<svg width="152" height="12" role="img" aria-label="%.2g">', ...
                '<rect class="%s" width="%.1f" height="12"/><path d="M90 0V12"/></svg> %.2g'], ...
               ratio, class, width, ratio);
end

function section(out, finding, k)
fprintf(out, ['<section class="%s" id="finding%d">\n<h3>%s: %s</h3>\n<p>Found by %s: %s</p>\n', ...
              '<pre>%s</pre>\n</section>\n'], ...
        finding.severity, k, capitalized(finding.severity), escapedHtml(finding.what), escapedHtml(finding.check), ...
        escapedHtml(circumstances(finding)), ...
        escapedHtml(strjoin(reshape(finding.lines, 1, []), sprintf('\n'))));
end

% Where it is worst, in how many of what was asked, and how far it is off.
function text = circumstances(finding)
parts = {};
if ~isempty(finding.where)
    parts{end + 1} = finding.where;
end
parts{end + 1} = sprintf('%d of %d asked', finding.count, finding.asked);
if isfinite(finding.limit)
    parts{end + 1} = sprintf('off by %.3g, the limit is %.3g', finding.size, finding.limit);
end
text = strjoin(parts, '; ');
end

function text = capitalized(text)
text(1:min(1, end)) = upper(text(1:min(1, end)));
end
