function varargout = VerdanthClient(varargin)
% Plays the client: remembers how it was called, and fails with `client_failure` if that is set.
global client_inputs client_outputs client_failure
client_inputs = varargin;
client_outputs = nargout;
if ~isempty(client_failure)
    error('Verdanth:error', '%s', client_failure);
end
varargout = num2cell(1:max(nargout, 1));
if isequal(varargin, {'back end'})
    varargout = {'isolated: C:\host.exe'};
elseif isequal(varargin, {26})
    varargout = {'version of the client'};
end
end
