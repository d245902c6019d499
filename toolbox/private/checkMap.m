function text = checkMap(report)
%checkMap  The states of a check over temperature and the logarithm of pressure, as a picture for a page.
%
%   A state that fails in several comparisons is drawn once.
T = [report.flashes.T].';
P = [report.flashes.P].';
failing = report.findings(strcmp({report.findings.severity}, 'failure'));
bad = unique([vertcat(zeros(0, 1), failing.T), vertcat(zeros(0, 1), failing.P)], 'rows');
range = [min([T; bad(:, 1)]), max([T; bad(:, 1)]), log10(min([P; bad(:, 2)])), log10(max([P; bad(:, 2)]))];
x = @(T) 80 + 500 * (T - range(1)) / max(range(2) - range(1), 1e-6);
y = @(P) 270 - 245 * (log10(P) - range(3)) / max(range(4) - range(3), 1e-6);
parts = {sprintf('<svg class="map" viewBox="0 0 600 325" role="img" aria-label="States and failures">\n')
         '<path d="M70 15V280H595"/><text x="595" y="318" text-anchor="end">temperature</text>'
         '<text x="80" y="20">pressure</text>'};
for tick = temperatures(range)
    parts{end + 1} = sprintf('<path d="M%.1f 280v5"/><text x="%.1f" y="299" text-anchor="middle">%g K</text>\n', ...
                             x(tick), x(tick), tick); %#ok<AGROW>
end
for tick = pressures(range)
    parts{end + 1} = sprintf('<path d="M65 %.1fh5"/><text x="61" y="%.1f" text-anchor="end">%s</text>\n', ...
                             y(tick), y(tick) + 4, pressureText(tick)); %#ok<AGROW>
end
parts{end + 1} = sprintf('<circle class="asked" cx="%.1f" cy="%.1f" r="3"/>\n', [x(T), y(P)].');
if ~isempty(bad)
    parts{end + 1} = sprintf('<circle class="beyond" cx="%.1f" cy="%.1f" r="5"/>\n', [x(bad(:, 1)), y(bad(:, 2))].');
end
parts{end + 1} = '</svg>';
parts{end + 1} = ['<p>A small dot is a flash that was asked for, ', ...
                  'a large one a state at which something failed.</p>'];
text = [parts{:}];
end

% Some four to nine round numbers.
function ticks = temperatures(range)
width = max(range(2) - range(1), 1);
step = 10 ^ floor(log10(width / 4));
step = step * max([1, 2, 5] .* ([1, 2, 5] * step <= width / 4));
ticks = step * (ceil(range(1) / step):floor(range(2) / step));
end

% Powers of ten, with twice and five times these where there are few.
function ticks = pressures(range)
powers = 10 .^ (floor(range(3)):floor(range(4)));
ticks = reshape([1; 2; 5] * powers, 1, []);
if range(4) - range(3) > 3
    ticks = powers;
end
ticks = ticks(log10(ticks) >= range(3) & log10(ticks) <= range(4));
end
