function [backEnd, details] = capeOpenBackend(name, option1, value1, option2, value2)
%capeOpenBackend  Choose where the library runs: in this process, in one of its own, or under Wine.
%
%   [backEnd, details] = capeOpenBackend(name, option1, value1, option2, value2)
%   [backEnd, details] = capeOpenBackend()
%
%   At first the library runs in the process of MATLAB or Octave: that is the
%   back end 'native'. With the others all functions stay the same:
%
%     'isolated'  in MATLAB on Windows: the library runs in a process of its
%                 own, which MATLAB outlives when a package crashes. Octave on
%                 Windows has this one from the beginning, and no other; every
%                 call is waited for there.
%     'windows'   in Octave on Linux, where 'native' has packages that were
%                 built for Linux: the library for Windows runs in a process
%                 of its own, under Wine, and uses the packages that are
%                 installed there, for 64 and 32 bits.
%
%   Another back end than before closes the packages of the one before. In
%   Octave the choice holds for this process and those that it starts, also
%   after clear all; a script that can not choose finds it in the environment:
%   VERDANTH_BACKEND, VERDANTH_WINEPREFIX and VERDANTH_TIME_LIMIT are what the
%   arguments are here. In MATLAB the choice is a folder on the path, and holds
%   as long as that is there: until the end of the session, unless savepath
%   keeps it.
%
%   A package that crashes ends the process of the library, and neither MATLAB
%   nor Octave: the call fails, the packages that were open are lost, and the
%   next call starts a new process. Ctrl-C stops waiting for a call. The next
%   call waits until that one has come to its end; Ctrl-C then ends the process.
%   MATLAB tells of Ctrl-C by a function that it does not document; without it
%   every call is waited for, and a time limit is what helps.
%
%   Arguments:
%     name    'native', 'isolated' or 'windows'; without it nothing is changed
%     option1, option2
%             'TimeLimit', and for 'windows' also 'Prefix'. What is not given
%             stays as it was.
%     value1, value2
%             of 'TimeLimit': seconds that a call may take before its process
%             is ended. Inf, as at the beginning, sets no limit.
%             Of 'Prefix': the folder of Wine's disks and registry, where the
%             packages are installed; it is made if it is not there. '' is one
%             of the user's own, ~/.local/share/verdanth/wine.
%
%   Results:
%     backEnd  'native', 'isolated' or 'windows'
%     details  text: what runs where
%
%   Errors:
%     'Unknown back end "..."; there are 'native', 'isolated' and 'windows''
%     'The back end 'isolated' is for Windows'
%     'The back end 'windows' is for Octave on Linux'
%             Elsewhere packages for Windows are used as they are, or not at
%             all.
%     'Octave on Windows has no other back end than 'isolated''
%     'Octave on Windows has no 'TimeLimit''
%     'Expected 'Prefix' or 'TimeLimit' and a value for it'
%             Another option, one without a value, or one that the back end
%             does not have.
%     'Expected text for 'Prefix''
%     'Expected a positive number for 'TimeLimit''
%     'The back end can not be changed in the folder ...: go to another by cd'
%             It is the one of the functions, and what lies in the current
%             folder is called first.
%     'The back end 'isolated' was not found: there is no ...'
%     'VerdanthHost64.exe was not found: ...'
%             Files of Verdanth are missing. Install it again.
%     'The host process ... did not start: ...'
%             As a rule a file beside the one that is named is missing.
%     'The host process ... did not start within ... s...'
%             The machine is slow.
%     'Wine was not found...'
%             Install it as the message says, and try again.
%     'The Windows files of Verdanth were not found: ...'
%             They are not where the message says. They come with Verdanth.
%     'The Wine prefix ... can not be made: ...'
%             The message tells why, and how another folder is chosen.
%     'The Wine prefix ... can not be used: ...'
%             It belongs to another user; choose one of your own.
%     'The Wine prefix ... is broken: ...'
%             Remove the folder, and it is made anew.
%     'The Windows program ... did not start: ...'
%             As a rule something else is wrong with the prefix, or with Wine.
%     'The Windows program ... did not start within ... s...'
%             The machine is slow, or Wine waits for something.
%
%   Errors of any function then:
%     'The property package ended its process: ..., while calculating ...'
%     'The property package did not answer within ... s, and its process was ended, while calculating ...'
%     'Invalid property package handle: its package was lost with its process (...)'
%     'Stopped by Ctrl-C'
%             In MATLAB.
%
%   Warnings:
%     'Wine has no 32-bit half in the prefix ...: packages for 32 bits can not be used...'
%
%   Example:
%     backEnd = capeOpenBackend()
%
%   See also capeOpenVersion, capeOpenManagerList, capeOpenCreate.
if nargin > 0
    options = cell(1, 2 * (nargin > 1) + 2 * (nargin > 3));
    if nargin > 1 && mod(nargin, 2) == 0
        refuse('Expected ''Prefix'' or ''TimeLimit'' and a value for it');
    end
    if nargin > 1
        options(1:2) = {option1, value1};
    end
    if nargin > 3
        options(3:4) = {option2, value2};
    end
    choose(name, options);
end
[backEnd, details] = backEndOfCalls();
end

function choose(name, options)
given = libraryArguments([{[], name}, options]);
name = given{2};
names = {'native', 'isolated', 'windows'};
if ~ischar(name) || ~any(strcmpi(name, names))
    refuse('Unknown back end "%s"; there are ''native'', ''isolated'' and ''windows''', textOf(name));
end
name = lower(name);
in_octave = exist('OCTAVE_VERSION', 'builtin');
if strcmp(name, 'isolated') && ~ispc()
    refuse('The back end ''isolated'' is for Windows');
end
if strcmp(name, 'windows') && (~in_octave || ~isunix() || ismac())
    refuse('The back end ''windows'' is for Octave on Linux');
end
wanted = cell(0, 2);
for k = 3:2:numel(given)
    wanted(end + 1, :) = variableFor(name, given{k}, given{k + 1}); %#ok<AGROW>
end
if in_octave && ispc()
    acceptWhatThereIs(name, wanted);
elseif in_octave
    chooseInEnvironment([{'VERDANTH_BACKEND', name}; wanted]);
else
    chooseOnPath(name, wanted);
end
end

function acceptWhatThereIs(name, wanted)
if ~strcmp(name, 'isolated')
    refuse('Octave on Windows has no other back end than ''isolated''');
elseif ~isempty(wanted)
    refuse('Octave on Windows has no ''TimeLimit''');
end
capeOpenVersion();
end

% Octave's part of Verdanth looks there.
function chooseInEnvironment(wanted)
before = cellfun(@getenv, wanted(:, 1), 'UniformOutput', false);
back = onCleanup(@() cellfun(@setenv, wanted(:, 1), before)); % after an error or Ctrl-C
cellfun(@setenv, wanted(:, 1), wanted(:, 2));
capeOpenVersion();
clear('back');
cellfun(@setenv, wanted(:, 1), wanted(:, 2));
end

% MATLAB calls what comes first on its path under the name of the library.
function chooseOnPath(name, wanted)
before = backEndOfCalls();
if ~strcmp(name, before) && strcmpi(fileparts(which('Verdanth')), pwd())
    refuse('The back end can not be changed in the folder %s: go to another by cd', pwd()); % it comes before the path
end
if strcmp(name, 'isolated')
    requireClient();
end
values = cellfun(@getenv, wanted(:, 1), 'UniformOutput', false);
try
    putOnPath(name);
    cellfun(@setenv, wanted(:, 1), wanted(:, 2));
    capeOpenVersion();
catch problem
    putOnPath(before);
    cellfun(@setenv, wanted(:, 1), values);
    rethrow(problem);
end
end

function putOnPath(name)
if strcmp(backEndOfCalls(), name)
    return
end
clear('Verdanth', 'VerdanthClient'); % closes the packages, and ends a process that there is
if strcmp(name, 'isolated')
    addpath(isolatedFolder());
else
    rmpath(isolatedFolder());
end
end

% Before anything is closed.
function requireClient()
names = {'Verdanth.m', 'VerdanthClient.mexw64'};
for k = 1:numel(names)
    file = fullfile(isolatedFolder(), names{k});
    if ~exist(file, 'file')
        refuse('The back end ''isolated'' was not found: there is no %s', file);
    end
end
end

% The variable of the environment that an option stands for, and its value there.
function pair = variableFor(name, option, value)
if ischar(option) && strcmpi(option, 'Prefix') && strcmp(name, 'windows')
    if ~ischar(value)
        refuse('Expected text for ''Prefix''');
    end
    if ~isempty(value) && ~any(value(1) == '/~')
        value = fullfile(pwd(), value); % the same one after cd
    end
    pair = {'VERDANTH_WINEPREFIX', value};
elseif ischar(option) && strcmpi(option, 'TimeLimit') && ~strcmp(name, 'native')
    if ~isnumeric(value) || ~isscalar(value) || ~(value > 0)
        refuse('Expected a positive number for ''TimeLimit''');
    end
    pair = {'VERDANTH_TIME_LIMIT', ''};
    if isfinite(value)
        pair{2} = sprintf('%.17g', value);
    end
else
    refuse('Expected ''Prefix'' or ''TimeLimit'' and a value for it');
end
end

function refuse(varargin)
error('Verdanth:error', varargin{:});
end
