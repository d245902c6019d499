function text = excessScale(name)
%excessScale  What the terms of a property are of the size of beside its value, as an expression.
%
%   Excess properties are differences, and small where a mixture is ideal; a logarithm may be.
text = '0';
if strncmpi(name, 'excess', 6)
    if strcmpi(name, 'excessEntropy')
        text = 'R';
    elseif strcmpi(name, 'excessVolume')
        text = 'R * T ./ P';
    else
        text = 'R * T';
    end
elseif strncmpi(name, 'log', 3) || strcmpi(name, 'activity')
    text = '1';
elseif strcmpi(name, 'fugacity') % of nothing of a compound it is 0
    text = 'P';
end
end
