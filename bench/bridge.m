% The calls of bridge.cpp from Octave; prints the processor time of one, in s:  octave-cli bridge.m TOOLBOX VERDANTH
1;
function best = seconds_of_call(h, rows, calls)
    Z = repmat([0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0], rows, 1);
    T = linspace(300, 400, rows)(:);
    if rows == 1
        T = 300;
    end
    best = Inf;
    for repetition = 1:10
        start = cputime();
        for k = 1:calls
            density = capeOpenSinglePhaseProp(h, 'density', T, 1e5, Z, 'Vapor');
        end
        best = min(best, (cputime() - start) / calls);
    end
end
addpath(argv(){:});
h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
printf('%.9g %.9g\n', seconds_of_call(h, 1, 500), seconds_of_call(h, 100000, 1));
capeOpenRelease(h);
