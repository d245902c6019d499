function answer = input(question, varargin)
% Gives the answer of the test and remembers the question.
global questions answers
questions{end + 1} = question;
answer = answers{numel(questions)};
end
