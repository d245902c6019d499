function varargout = lineColumns(lines, varargin)
%lineColumns  Fields of lines with temperatures T and pressures P as columns, parted by NaN where two do not join.
varargout = repmat({zeros(0, 1)}, size(varargin));
for k = 1:numel(lines)
    joined = k == 1 || abs(lines(k).T(1) / lines(k - 1).T(end) - 1) <= 1e-3 ...
             && abs(lines(k).P(1) / lines(k - 1).P(end) - 1) <= 1e-2;
    for column = 1:numel(varargin)
        varargout{column} = [varargout{column}; NaN(1 - joined, 1); lines(k).(varargin{column})];
    end
end
end
