% Reads .m files without running them, with what Octave warns of at reading as errors:  octave-cli parse.m FILE...
1;
function parse(file)
    strict = {'Octave:language-extension', 'Octave:assign-as-truth-value', 'Octave:variable-switch-label', ...
              'Octave:mixed-string-concat', 'Octave:empty-list-elements', 'Octave:nested-functions-coerced'};
    for name = strict
        warning('error', name{1});
    end
    warning('on', 'Octave:missing-semicolon');
    said = evalc('__parse_file__(file);');
    warning('off', 'Octave:missing-semicolon');
    for name = strict
        warning('off', name{1});
    end
    lines = strsplit(fileread(file), '\n', 'CollapseDelimiters', false);
    for found = regexp(said, 'semicolon near line (\d+)', 'tokens')
        number = str2double(found{1}{1});
        % Examples show results; the name behind a catch is taken for a statement.
        if isempty(strfind(file, 'examples')) && isempty(regexp(lines{number}, '^\s*catch ', 'once'))
            error('line %d has no semicolon', number);
        end
    end
end

files = argv();
failed = 0;
for k = 1:numel(files)
    try
        parse(files{k});
    catch problem
        printf('%s: %s\n', files{k}, problem.message);
        failed = failed + 1;
    end
end
printf('%d files read\n', numel(files) - failed);
exit(failed > 0);
