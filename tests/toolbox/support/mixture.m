function Z = mixture(h, varargin)
% A composition from names and amounts of compounds, without the function of the toolbox that does the same.
Z = zeros(1, numel(capeOpenCompoundList(h)));
for k = 1:2:numel(varargin)
    Z(strcmp(capeOpenCompoundList(h), varargin{k})) = varargin{k + 1};
end
end
