function check(holds, varargin)
% Raises an error with a formatted text if a condition does not hold.
if ~holds
    error(varargin{:});
end
end
