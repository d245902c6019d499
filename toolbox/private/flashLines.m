function lines = flashLines(s, flash)
%flashLines  The lines that do a flash of the sample.
lines = [stateLines(s, flash.T, flash.P, flash.Z)
         {'[phases, fractions, Y, Tr, Pr] = capeOpenFlash(handle, X, ''Temperature'', T, ''Pressure'', P)'}];
end
