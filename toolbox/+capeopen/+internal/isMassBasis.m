function answer = isMassBasis()
%capeopen.internal.isMassBasis  Whether capeOpenBasis('mass') holds.
%
%   The library does not tell its basis, but the unit of a density does.
answer = strcmp(capeOpenPropUnit('density'), 'kg / m3');
end
