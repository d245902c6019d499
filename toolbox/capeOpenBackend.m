function [backEnd, details] = capeOpenBackend(name, option1, value1, option2, value2)
%capeOpenBackend  Choose where the library runs: in this process, or under Wine with Windows packages.
%
%   [backEnd, details] = capeOpenBackend(name, option1, value1, option2, value2)
%   [backEnd, details] = capeOpenBackend()
%
%   In Octave on Linux the library runs in Octave's process, and uses packages
%   that were built for Linux: that is the back end 'native'. With 'windows' the
%   library for Windows runs in a process of its own, under Wine, and uses the
%   packages that are installed there, for 64 and 32 bits. All functions stay
%   the same. In MATLAB there is 'native' alone.
%
%   Another back end than before closes the packages of the one before. The
%   choice holds for this process and those that it starts, also after
%   clear all. A script that can not choose finds it in the environment:
%   VERDANTH_BACKEND, VERDANTH_WINEPREFIX and VERDANTH_TIME_LIMIT are what the
%   arguments are here.
%
%   A package that crashes under Wine ends the process of the library, and not
%   Octave: the call fails, the packages that were open are lost, and the next
%   call starts a new process. Ctrl-C stops waiting for a call. The next call
%   waits until that one has come to its end; Ctrl-C then ends the process.
%
%   Arguments:
%     name    'native' or 'windows'; without it nothing is changed
%     option1, option2
%             'Prefix' or 'TimeLimit', for 'windows'. What is not given stays
%             as it was.
%     value1, value2
%             of 'Prefix': the folder of Wine's disks and registry, where the
%             packages are installed; it is made if it is not there. '' is one
%             of the user's own, ~/.local/share/verdanth/wine.
%             Of 'TimeLimit': seconds that a call may take before its process
%             is ended. Inf, as at the beginning, sets no limit.
%
%   Results:
%     backEnd  'native' or 'windows'
%     details  text: what runs where
%
%   Errors:
%     'Unknown back end "..."; there are 'native' and 'windows''
%     'The back end 'windows' is for Octave on Linux'
%             Elsewhere packages for Windows are used as they are, or not at
%             all.
%     'Expected 'Prefix' or 'TimeLimit' and a value for it'
%             Another option, one without a value, or one for 'native'.
%     'Expected text for 'Prefix''
%     'Expected a positive number for 'TimeLimit''
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
names = {'native', 'windows'};
if ~ischar(name) || ~any(strcmpi(name, names))
    refuse('Unknown back end "%s"; there are ''native'' and ''windows''', textOf(name));
end
name = lower(name);
if strcmp(name, 'windows') && (~exist('OCTAVE_VERSION', 'builtin') || ~isunix() || ismac())
    refuse('The back end ''windows'' is for Octave on Linux');
end
wanted = {'VERDANTH_BACKEND', name};
for k = 3:2:numel(given)
    wanted(end + 1, :) = variableFor(name, given{k}, given{k + 1}); %#ok<AGROW>
end
before = cellfun(@getenv, wanted(:, 1), 'UniformOutput', false);
back = onCleanup(@() cellfun(@setenv, wanted(:, 1), before)); % after an error or Ctrl-C
cellfun(@setenv, wanted(:, 1), wanted(:, 2));
capeOpenVersion();
clear('back');
cellfun(@setenv, wanted(:, 1), wanted(:, 2));
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
elseif ischar(option) && strcmpi(option, 'TimeLimit') && strcmp(name, 'windows')
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
