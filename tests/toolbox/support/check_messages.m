function check_messages(toolbox, cases)
% Rows of function (behind capeOpen), message and action: the action raises the message, which stands in the help of the
% function. Three dots stand for what differs from case to case.
for k = 1:size(cases, 1)
    pattern = ['^' strrep(regexptranslate('escape', cases{k, 2}), '\.\.\.', '.+') '$'];
    message = words_of(cases{k, 3});
    check(~isempty(regexp(message, pattern, 'once')), '%s: not "%s", but "%s"', cases{k, 1}, cases{k, 2}, message);
    help_text = fileread(fullfile(toolbox, ['capeOpen' cases{k, 1} '.m']));
    check(~isempty(strfind(help_text, ['''' cases{k, 2} ''''])), '%s: "%s" is not in its help', cases{k, 1}, cases{k, 2});
end
end
