function checkReport(report, file)
%checkReport  Writes the report of a check as one HTML file, which needs nothing beside it.
%
%   The verdict, numbers and the worst findings come first, for who decides; then pictures, and each finding with the
%   lines that show it, for the author of the package.
[out, problem] = fopen(file, 'w');
if out < 0
    error('Verdanth:error', '"%s" can not be written: %s', file, problem);
end
closing = onCleanup(@() fclose(out)); %#ok<NASGU>
title = ['Check of ', report.package];
fprintf(out, '<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n');
fprintf(out, '<meta name="viewport" content="width=device-width, initial-scale=1">\n');
fprintf(out, '<title>%s</title>\n', escaped(title));
fprintf(out, '<style>\n%s</style>\n</head>\n<body>\n<h1>%s</h1>\n', styles(), escaped(title));
fprintf(out, '<p class="verdict %s">%s</p>\n', report.verdict, escaped(verdictText(report)));
fprintf(out, ['<p>%d comparisons of %d checks at %d states of %d compounds, in %.1f s (level %s, seed %g). ', ...
              'A failure is a value beyond what the arithmetic of its comparison allows; ', ...
              'a note is for judgement.</p>\n'], ...
        sum([report.checks.asked]), numel(report.checks), numel(report.flashes), numel(report.compounds), ...
        report.seconds, report.level, report.seed);
findings = sorted(report.findings);
fprintf(out, '<ol>\n');
fprintf(out, '%s', strjoin(arrayfun(@(f) sprintf('<li>%s</li>\n', escaped(f.what)), findings(1:min(3, end)), ...
                                    'UniformOutput', false), ''));
fprintf(out, '</ol>\n<h2>Checks</h2>\n<table>\n<tr><th>check</th><th>asked</th><th>failures</th><th>notes</th>');
fprintf(out, '<th>largest deviation, part of its limit</th></tr>\n');
for check = report.checks
    fprintf(out, '<tr><td>%s</td><td>%d</td><td>%d</td><td>%d</td><td>%s</td></tr>\n', escaped(check.title), ...
            check.asked, check.failures, check.notes, bar(check));
end
fprintf(out, '</table>\n<h2>Where it was asked, and what failed</h2>\n%s\n<h2>Findings</h2>\n', map(report));
for finding = findings
    fprintf(out, '<section class="%s">\n<h3>%s: %s</h3>\n', finding.severity, finding.severity, escaped(finding.what));
    fprintf(out, '<p>%s; %d of %d asked', escaped(finding.where), finding.count, finding.asked);
    if isfinite(finding.limit)
        fprintf(out, '; off by %.3g, the limit is %.3g', finding.size, finding.limit);
    end
    fprintf(out, '</p>\n<pre>%s</pre>\n</section>\n', escaped(strjoin(reshape(finding.lines, 1, []), sprintf('\n'))));
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

function text = escaped(text)
text = strrep(strrep(strrep(strrep(text, '&', '&amp;'), '<', '&lt;'), '>', '&gt;'), '"', '&quot;');
end

% The largest deviation on a scale of powers of ten from 1e-9 to 1e6 of the limit, which is a line.
function text = bar(check)
text = '';
if isempty(check.bars)
    return
end
ratio = max([check.bars.ratio]);
width = max(0, min(150, 10 * (log10(max(ratio, 1e-9)) + 9)));
class = {'within', 'beyond'};
text = sprintf(['<svg width="152" height="12" role="img" aria-label="%.2g">', ...
                '<rect class="%s" width="%.1f" height="12"/><path d="M90 0V12"/></svg> %.2g'], ...
               ratio, class{1 + (ratio > 1)}, width, ratio);
end

% States over temperature and the logarithm of pressure.
function text = map(report)
T = [report.flashes.T].';
P = [report.flashes.P].';
failing = report.findings(strcmp({report.findings.severity}, 'failure'));
Tf = vertcat(failing.T);
Pf = vertcat(failing.P);
range = [min([T; Tf]), max([T; Tf]), log10(min([P; Pf])), log10(max([P; Pf]))];
x = @(T) 60 + 520 * (T - range(1)) / max(range(2) - range(1), 1e-6);
y = @(P) 270 - 250 * (log10(P) - range(3)) / max(range(4) - range(3), 1e-6);
text = [sprintf('<svg class="map" viewBox="0 0 600 310" role="img" aria-label="States and failures">\n'), ...
        sprintf('<path d="M60 10V270H590"/><text x="60" y="290">%.4g K</text>', range(1)), ...
        sprintf('<text x="590" y="290" text-anchor="end">%.4g K</text>', range(2)), ...
        sprintf('<text x="55" y="270" text-anchor="end">%.2g Pa</text>', 10 ^ range(3)), ...
        sprintf('<text x="55" y="20" text-anchor="end">%.2g Pa</text>\n', 10 ^ range(4)), ...
        sprintf('<circle cx="%.1f" cy="%.1f" r="3"/>\n', [x(T), y(P)].')];
if ~isempty(Tf)
    text = [text, sprintf('<circle class="beyond" cx="%.1f" cy="%.1f" r="5"/>\n', [x(Tf), y(Pf)].')];
end
text = [text, '</svg>'];
end

function text = styles()
text = strjoin({
    ':root { color-scheme: light dark; --text: #1b1f24; --page: #ffffff; --soft: #f3f5f7;'
    '  --bad: #b3261e; --good: #1d6b3a; }'
    '@media (prefers-color-scheme: dark) {'
    '  :root { --text: #e6e8ea; --page: #15181c; --soft: #20252b; --bad: #ff8a80; --good: #7fd49b; } }'
    'body { font: 16px/1.5 sans-serif; color: var(--text); background: var(--page);'
    '  max-width: 60em; margin: auto; padding: 1em; }'
    '.verdict { font-size: 1.6em; font-weight: bold; color: var(--good); }'
    '.verdict.failures, .failure h3 { color: var(--bad); }'
    'table { border-collapse: collapse; width: 100%; } th, td { text-align: left; padding: 0.2em 0.6em; }'
    'tr:nth-child(even), pre { background: var(--soft); }'
    'pre { padding: 0.6em; white-space: pre-wrap; overflow-wrap: anywhere; } h3 { overflow-wrap: anywhere; }'
    'svg path { stroke: var(--text); fill: none; } svg text { fill: var(--text); font-size: 11px; }'
    'svg rect, svg circle { fill: var(--good); } svg .beyond { fill: var(--bad); } .map { max-width: 40em; }'
    '@media print { section, tr { break-inside: avoid; } body { max-width: none; } }'
    ''}.', sprintf('\n'));
end
