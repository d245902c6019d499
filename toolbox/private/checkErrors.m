function tally = checkErrors(s, tally)
%checkErrors  What is wrong is refused, with words that say why.
X = s.flashes(1).Z;
head = [{s.opening}; {numbersText('X', X)}];
mistakes = {'a temperature below zero', {'Temperature', -10, 'Pressure', 1e5}
            'a pressure below zero', {'Temperature', 300, 'Pressure', -1e5}
            'a vapor fraction of 2', {'vaporFraction', 2, 'Pressure', 1e5}};
for k = 1:size(mistakes, 1)
    tally.asked = tally.asked + 1;
    lines = [head; {sprintf('value = capeOpenFlash(handle, X, ''%s'', %g, ''%s'', %g)', mistakes{k, 2}{:})}];
    try
        capeOpenFlash(s.handle, X, mistakes{k, 2}{:});
        tally = checkFound(tally, 'failure', ['A flash at ', mistakes{k, 1}, ' is solved'], '', lines);
    catch problem
        words = regexprep(strtok(problem.message, sprintf('\n')), '^CalcEquilibrium failed:?\s*', '');
        if numel(words) < 10
            what = ['A flash at ', mistakes{k, 1}, ' is refused without a reason: ', words];
            tally = checkFound(tally, 'note', what, '', lines);
        end
    end
end
end
