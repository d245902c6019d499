% Writes reports of checks, and what they found as JSON:  octave-cli make_reports.m TOOLBOX VERDANTH FOLDER
% sound.html is that of a package without faults, numbers.html of one with wrong numbers, words.html of one whose errors
% have markup and what can not be broken in them.
1;

function check_into(folder, name, varargin)
    report = capeOpenCheck('Verdanth Reference Packages', 'Natural gas', 'Level', 'quick', 'Quiet', true, ...
                           'Report', fullfile(folder, [name, '.html']), varargin{:});
    out = fopen(fullfile(folder, [name, '.json']), 'w');
    kept = rmfield(report.findings, {'count', 'asked', 'size', 'limit', 'T', 'P'});
    fputs(out, jsonencode(struct('verdict', report.verdict, 'asked', sum([report.checks.asked]), 'findings', {num2cell(kept)})));
    fclose(out);
end

function v = markup(v, asked)
    error('Verdanth:error', '%s', ['CalcSinglePhaseProp failed: <b>no</b> &amp; <script>document.title = "run"</script>', repmat('w', 1, 300)]);
end

given = argv();
addpath(given{1}, given{2}, fullfile(fileparts(fileparts(mfilename('fullpath'))), 'support'));
behind_the_faulty_one();
global fault
check_into(given{3}, 'sound');
fault = struct('command', 22, 'property', 'density', 'alter', @(v, g) v .* (1 + 1e-6 * (g{5}(:) > 300)));
check_into(given{3}, 'numbers');
fault = struct('command', 22, 'property', 'viscosity', 'alter', @markup);
check_into(given{3}, 'words', 'Checks', {'listedProperties'});
fault = [];
