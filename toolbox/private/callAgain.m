function varargout = callAgain(problem, name, given, call)
%callAgain  After the library refused: calls it once more with what it reads, or says why it did.
%
%   [...] = callAgain(problem, name, given, call)
%
%   PROBLEM is what was caught in the function NAME, which was given GIVEN; CALL calls the library with arguments in a
%   cell. An empty PROBLEM stands for a first call that is still to be made. This comes after a failure alone, so that a
%   call that is right costs nothing more. The words of the library are the first line of the error, and those of this
%   toolbox follow.
first = isempty(problem);
if ~first && ~isTheLibrarys(problem)
    rethrow(problem);
end
[given, ~, changed] = libraryArguments(given);
if first || changed
    try
        [varargout{1:nargout}] = call(given);
        return
    catch problem
        if ~isTheLibrarys(problem)
            rethrow(problem);
        end
    end
end
more = '';
try
    more = explanation(problem.message, name, given);
catch
    % the library's words have to do
end
error(struct('identifier', 'Verdanth:error', 'message', [problem.message, more], 'stack', problem.stack));
end

function yes = isTheLibrarys(problem)
yes = isempty(problem.identifier) || strcmp(problem.identifier, 'Verdanth:error'); % MATLAB's way leaves it empty
end
