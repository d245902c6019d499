function phases = labelsOfDensities(model, compositions, T, P, densities)
%labelsOfDensities  Which label gives each of two compositions the density that is nearer to the expected one.
phases = zeros(1, 2);
try
    for k = 1:2
        distance = zeros(1, 2);
        for label = 1:2
            [~, density] = fugacities(model, label, T, P, compositions{k});
            distance(label) = abs(log(density / densities(k)));
        end
        [~, phases(k)] = min(distance);
    end
catch failure
    rethrowOthers(failure);
    phases = [];
end
end
