function varargout = Verdanth(varargin)
% Plays the library: remembers how it was called, and answers with `next_answer` if that is set.
global recorded_inputs recorded_outputs next_answer
recorded_inputs = varargin;
recorded_outputs = nargout;
varargout = num2cell(1:max(nargout, 1));
if ~isempty(next_answer)
    varargout{1} = next_answer;
end
end
