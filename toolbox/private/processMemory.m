function [bytes, why] = processMemory()
%processMemory  The memory that packages take: that of this process, in bytes; NaN where it is not known, and WHY.
%
%   On Linux it is what lies in the machine's memory, on Windows what the process has asked for.
bytes = NaN;
why = '';
if ~strcmp(backEndOfCalls(), 'native')
    why = 'packages are in another process';
    return
end
try
    if ispc()
        info = memory();
        bytes = info.MemUsedMATLAB;
    else
        kilobytes = regexp(fileread('/proc/self/status'), 'VmRSS:\s*(\d+) kB', 'tokens', 'once');
        bytes = 1024 * str2double(kilobytes{1});
    end
catch
    why = 'the system does not tell';
end
end
