function host = startedHost()
%startedHost  A host process that has greeted. It goes when nobody has the struct any more.
[file, found] = hostFile();
if ~found
    error('Verdanth:error', '%s', file);
end
[program, arguments] = hostCommand(file);
try
    [in, out] = popen2(program, arguments, true); % reading waits
catch problem
    notStarted(file, problem.message);
end
host = struct('in', pipeOf(in), 'out', pipeOf(out), 'answering', false);
host.goes = onCleanup(@() endHost(host.in, host.out));
reason = greeting(host.out.id);
if ~isempty(reason)
    notStarted(file, reason);
end
end

% Octave gives the number of a file that was closed to the next one: the name tells whether it is still ours.
function pipe = pipeOf(id)
pipe = struct('id', id, 'name', fopen(id));
end

function reason = greeting(out)
version = 1;
bytes = readBytes(out, 16);
reason = '';
if numel(bytes) < 16
    reason = 'it ended before it had greeted';
elseif ~strcmp(char(bytes(1:8).'), 'VERDANTH')
    reason = 'it did not greet as a host of Verdanth does';
elseif ~isequal(typecast(bytes(9:16), 'uint32'), uint32([version; 0]))
    reason = sprintf('it speaks version %d of the messages, and not %d', typecast(bytes(9:12), 'uint32'), version);
end
end

function notStarted(file, reason)
error('Verdanth:error', ['The host process %s did not start: %s. ' ...
                         'If files of Verdanth are missing, install it again'], file, reason);
end
