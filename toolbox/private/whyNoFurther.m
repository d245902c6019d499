function why = whyNoFurther(model, T, P, z)
%whyNoFurther  A sentence on why a line goes not so far: the package calculates no fugacities there, or it isn't known.
why = 'no further point was found';
try
    for label = 1:2
        fugacities(model, label, T, P, z);
    end
catch failure
    rethrowOthers(failure);
    why = ['the package calculates nothing beyond (', failure.message, ')'];
end
end
