function seconds = seconds_of(action)
% What a call costs: in processor time, for other things run on this machine, too; under Wine it is another process that
% works, and the clock has to do.
begun = [cputime(), now() * 86400];
action();
passed = [cputime(), now() * 86400] - begun;
seconds = passed(1 + strcmp(getenv('VERDANTH_BACKEND'), 'windows'));
end
