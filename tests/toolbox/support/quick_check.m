function report = quick_check(varargin)
% The report of a quick check of the natural gas, with more options.
report = capeOpenCheck('Verdanth Reference Packages', 'Natural gas', 'Level', 'quick', 'Quiet', true, varargin{:});
end
