function [vapor, liquid] = vaporAndLiquid(handle)
%vaporAndLiquid  Labels of the first vapor and the first liquid phase of a package.
labels = capeOpenPhaseList(handle);
states = cellfun(@(label) capeOpenPhaseState(handle, label), labels, 'UniformOutput', false);
vapor = labels(strcmpi(states, 'Vapor'));
liquid = labels(strcmpi(states, 'Liquid'));
if isempty(vapor) || isempty(liquid)
    error('Verdanth:error', 'The package needs a vapor and a liquid phase');
end
vapor = vapor{1};
liquid = liquid{1};
end
