function [file, found] = hostFile()
%hostFile  The program that has the library, beside this client or where both are installed; or that there is none.
name = 'VerdanthHost64.exe';
own = fileparts(fileparts(mfilename('fullpath')));
found = true;
for folder = {own, fullfile(fileparts(own), 'host')}
    file = fullfile(folder{1}, name);
    if exist(file, 'file')
        return
    end
end
file = [name ' was not found: it is neither in ' own ' nor in the folder host beside that'];
found = false;
end
