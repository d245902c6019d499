function part = checkPart(s, name)
%checkPart  Does one check with a sample: what it found, its name and the seconds it took.
table = checkTable();
since = tic();
tally = checkTally(name);
try
    tally = table{strcmp(table(:, 1), name), 3}(s, tally);
catch problem
    tally = checkFound(tally, 'failure', ['The check ended with: ', problem.message], '', ...
                       {s.opening; sprintf('capeOpenCheck(handle, ''Checks'', {''%s''});', name)});
end
part = struct('name', name, 'tally', tally, 'seconds', toc(since));
end
