function answer = answerTo(host, message)
%answerTo  Send a call and read what comes back.
%
%   A struct: results; warnings, in their order; error, the words of one or '';
%   end, why the host can't be used any more or ''.
answer = struct('results', {{}}, 'warnings', {{}}, 'error', '', 'end', '');
fwrite(host.in.id, message); % one that has ended may have said why
fflush(host.in.id);
try
    answer = readAnswer(answer, host.out.id);
catch problem
    answer.error = ['The host process sent what can not be read (' problem.message '), and was ended'];
    answer.end = 'it sent what can not be read';
end
end

function answer = readAnswer(answer, pipe)
kinds = struct('warning', 16, 'results', 17, 'error', 18, 'lastWords', 19);
while true
    [kind, words, reason] = readMessage(pipe);
    switch kind
        case kinds.warning
            answer.warnings{end + 1} = textIn(words);
        case kinds.results
            answer.results = resultsIn(words);
            return
        case kinds.error
            answer.error = textIn(words);
            return
        case {0, kinds.lastWords}
            if kind ~= 0
                reason = textIn(words);
            elseif isempty(reason)
                reason = 'it did not tell why';
            end
            answer.end = reason;
            answer.error = ['The property package ended its process: ' reason];
            return
        otherwise
            error('Verdanth:malformed', 'an unexpected kind of message');
    end
end
end
