function cas = casOf(handle)
%casOf  The CAS numbers of a package, a text for each compound; '' for one that has none, or that was there before.
cas = cell(1, numel(capeOpenCompoundList(handle)));
cas(:) = {''};
try
    given = capeOpenConstant(handle, 'casRegistryNumber');
catch
    return % the package knows none
end
for k = 1:min(numel(given), numel(cas))
    if ~any(strcmp(strtrim(given{k}), cas))
        cas{k} = strtrim(given{k});
    end
end
end
