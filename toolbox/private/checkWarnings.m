function tally = checkWarnings(s, tally)
%checkWarnings  What a package warns of in calls in which nothing is wrong: how many of them, and its words.
%
%   Each kind of call is made at all of its states, one after the other, with warnings on.
flash = s.flashes([find(cellfun(@isempty, {s.flashes.problem}), 1), 1]);
flash = flash(1);
on = warningsAreOn(s.handle, {flash.Z, 'Temperature', flash.T, 'Pressure', flash.P, 'Unspecified', 'Temperature'});
restore = onCleanup(@() capeOpenWarnings(on)); %#ok<NASGU>
captured = capeopen.internal.capturedWarnings(); %#ok<NASGU>
capeOpenWarnings('on');
texts = cell(0, 1);
calls = 0;
for kind = callKinds(s)
    for row = 1:kind.states
        tally.asked = tally.asked + 1;
        shown = evalc('kind.ask(row);');
        notes = notesOfWarnings(shown, NaN, {});
        if isempty(notes) || isempty([notes.texts; notes.words])
            continue
        end
        if calls == 0
            lines = [kind.setting(row); {'capeOpenWarnings(''on'')'; sprintf('numbers = %s', kind.call)}];
        end
        calls = calls + 1;
        texts = [texts; notes.texts; notes.words]; %#ok<AGROW>
    end
end
if calls > 0
    words = unique(texts);
    what = sprintf('Calls with nothing wrong in them warn, in %d different words: %s', numel(words), ...
                   strjoin(words(1:min(3, end)).', '; '));
    tally = checkFound(tally, 'note', what, '', lines);
    [tally.findings(end).count, tally.findings(end).asked] = deal(calls, tally.asked);
end
end
