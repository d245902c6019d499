function varargout = Verdanth(varargin)
%Verdanth  The library for Octave on Windows, in a process of its own.
%
%   The functions capeOpen... call it where no compiled file connects Octave
%   with the library. It starts VerdanthHost64.exe, which has the library, and
%   asks it by pipes; a package that crashes ends that process, and not Octave.
%   clear all ends it, too, and so does the end of Octave.
%
%   It waits for every call. A package that does not return is stopped by
%   ending VerdanthHost64.exe in the Task Manager: the call fails then.
%
%   It was run in Octave on Linux, with the program under Wine, and not yet in
%   Octave on Windows itself.
persistent host handles
if isempty(handles)
    handles = struct('open', zeros(0, 1, 'int32'), 'lost', zeros(0, 1, 'int32'), 'reasons', {{}});
end
if nargin == 1 && ischar(varargin{1}) && strcmp(varargin{1}, 'back end')
    varargout{1} = ['isolated: ' hostFile()];
    return
end
reason = '';
if ~isempty(host)
    reason = whyUnusable(host);
end
if ~isempty(reason)
    handles = lostHandles(handles, reason);
    endHost(host.in, host.out);
    host = [];
end
if isempty(host)
    host = startedHost();
end

code = codeOf(varargin);
message = callMessage(nargout, varargin);
host.answering = true; % remains so when the user does not wait for the answer
answer = answerTo(host, message);
host.answering = false;
if ~isempty(answer.end)
    handles = lostHandles(handles, answer.end);
    endHost(host.in, host.out);
    host = [];
    answer.error = [answer.error, ', ', whereIn(code)];
elseif isempty(answer.error)
    handles = notedHandles(handles, code, varargin, answer.results);
else
    answer.error = [answer.error, lossOfHandle(answer.error, handles, code, varargin)];
end
for k = 1:numel(answer.warnings)
    warning('Verdanth:warning', '%s', answer.warnings{k});
end
if ~isempty(answer.error)
    error('Verdanth:error', '%s', answer.error);
end
varargout = answer.results(1:min(end, max(nargout, 1)));
end

function code = codeOf(given)
code = 0;
if ~isempty(given) && isa(given{1}, 'double') && isscalar(given{1}) && abs(given{1}) < 1000
    code = fix(real(full(given{1})));
end
end

% Empty for a host that the next call can go to.
function reason = whyUnusable(host)
reason = '';
if host.answering
    reason = 'it was ended by Ctrl-C';
elseif ~isOpenPipe(host.in) || ~isOpenPipe(host.out)
    reason = 'its pipes were closed';
end
end
