function install(action)
%install  Make the functions of Verdanth known to MATLAB or Octave.
%
%   install
%   install('remove')
%
%   For 64-bit MATLAB R2016b or later, or Octave 7, on 64-bit Windows;
%   README.txt tells what was run where.
%
%   Adds the folder with the functions of Verdanth to the path and saves the
%   path. If Verdanth came as a zip file, it then asks whether to register
%   the relay, which 32-bit property packages need, the CAPE-OPEN type library,
%   which they need, too, and the reference package; all of it needs a MATLAB or
%   Octave that was started as administrator. With 'remove' the folder is taken
%   from the path again, and with it what capeOpenBackend or Octave have put there.
%   Nothing else is changed.
root = fileparts(mfilename('fullpath'));
functions = fullfile(root, 'toolbox');

if nargin > 0
    if ~strcmp(action, 'remove')
        error('install takes no argument, or ''remove''.');
    end
    rmpath(functions);
    for other = {'isolated', 'octave'} % where capeOpenBackend, or Octave, has put it
        folder = fullfile(root, other{1});
        if any(strcmpi(strsplit(path(), pathsep()), folder))
            rmpath(folder);
        end
    end
    keep_path();
    fprintf('%s is no longer on the path.\n', functions);
    return
end

if isempty(regexp(computer(), '^(PCWIN64|x86_64-.*mingw32)$', 'once'))
    error('Verdanth needs 64-bit MATLAB or Octave on 64-bit Windows; this is %s.', computer());
end
if exist(fullfile(functions, 'Verdanth.mexw64'), 'file') == 0
    error('Verdanth.mexw64 is not in %s. Unpack the whole zip file, and run install.m where it was unpacked.', functions);
end

addpath(functions);
keep_path();
fprintf('%s is on the path now.\n', functions);

if exist(fullfile(root, 'uninstall.exe'), 'file') ~= 0
    fprintf('The setup program has registered what was chosen there.\n');
    return
end
fprintf('\nWhat follows changes the registry of Windows for all users of this machine, and needs a MATLAB or\n');
fprintf('Octave that was started as administrator. Without it, 64-bit packages of other vendors work all the same.\n\n');
relay = ['"' fullfile(root, 'Verdanth6432Relay.exe') '"'];
offer('the relay, which 32-bit packages need', {[relay ' /RegServer']});
offer('the CAPE-OPEN type library, which they need, too, if this machine has none', {[relay ' /RegTypeLib']});
windows = getenv('SystemRoot');
offer('the reference package, for trying Verdanth out', ...
      {['"' fullfile(windows, 'System32', 'regsvr32.exe') '" /s "' fullfile(root, 'reference', 'x64', 'VerdanthReference.dll') '"'], ...
       ['"' fullfile(windows, 'SysWOW64', 'regsvr32.exe') '" /s "' fullfile(root, 'reference', 'x86', 'VerdanthReference.dll') '"']});
end

function keep_path()
if savepath() ~= 0
    fprintf('The path could not be saved, so this holds for the present session only. Use pathtool to save it.\n');
end
end

function offer(what, commands)
answer = input(['Register ' what '? y/n [n]: '], 's');
if ~strncmpi(answer, 'y', 1)
    return
end
for k = 1:numel(commands)
    fprintf('  %s\n', commands{k});
    if system(commands{k}) ~= 0
        fprintf('That failed. Start MATLAB or Octave as administrator and run install again.\n');
        return
    end
end
fprintf('Done.\n');
end
