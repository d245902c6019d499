function own = comparePhases(handle, phases, states)
%comparePhases  The labels by which a package knows phases: the same, or that of its one phase of the same state.
own = repmat({''}, size(phases));
labels = capeOpenPhaseList(handle);
kinds = cellfun(@(label) capeOpenPhaseState(handle, label), labels, 'UniformOutput', false);
for k = 1:numel(phases)
    same = find(strcmpi(labels, phases{k}));
    if isempty(same)
        same = find(strcmpi(kinds, states{k}) & ~ismember(lower(labels), lower(phases)));
    end
    if numel(same) == 1
        own{k} = labels{same};
    end
end
end
