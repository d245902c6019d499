function message = message_of(action)
% The words of the error that an action raises, '' for none.
message = '';
try
    action();
catch problem
    message = problem.message;
end
end
