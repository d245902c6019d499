function values = pureValues(s, name, T, kind)
%pureValues  A property of each compound at a temperature of its own, or a pressure: NaN where there is none.
%
%   KIND is 'TDependent' or 'PDependent'.
ask = @capeOpenTDependentProp;
if strcmp(kind, 'PDependent')
    ask = @capeOpenPDependentProp;
end
T = reshape(T, [], 1);
good = isfinite(T);
values = NaN(1, s.n);
try
    some = ask(s.handle, name, T(good));
    values(good) = some(sub2ind(size(some), 1:sum(good), find(good.')));
catch
    for k = find(good.')
        try
            some = ask(s.handle, name, T(k));
            values(k) = some(k);
        catch
            % no value at this temperature
        end
    end
end
end
