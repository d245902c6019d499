% Envelopes of many random mixtures against the package's flashes; not one of the tests, it takes some minutes:
% octave-cli tests/toolbox/campaign_envelopes.m TOOLBOX VERDANTH FIRST LAST [FAMILY ...]
% Prints what is not complete and what is not the flash's, and a summary of each family.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function run_family(family, seeds)
    complete = 0;
    agreeing = 0;
    silent = 0;
    unsound = 0;
    for seed = seeds
        [package, Z] = mixture_of_family(family, seed);
        h = capeOpenCreate('Verdanth Reference Packages', package);
        try
            [whole, distance, missed, reason, sound] = envelope_against_flashes(h, Z);
        catch failure
            [whole, distance, missed, reason, sound] = deal(false, Inf, 0, ['error: ' failure.message], true);
        end
        capeOpenRelease(h);
        complete = complete + whole;
        agreeing = agreeing + (distance <= 1e-6);
        silent = silent + (~whole && isempty(reason));
        unsound = unsound + ~sound;
        if ~sound
            printf('%s %d: the critical point is none of the flash. %s\n', family, seed, reason);
        end
        if ~whole || distance > 1e-6 || missed > 0
            printf('%s %d: complete %d, off by %.1e, %d points without an answer. %s\n', family, seed, whole, distance, ...
                   missed, reason);
        end
    end
    printf('== %s: %d of %d complete, %d within 1e-6 of the flash, %d incomplete without a reason, %d critical points in doubt\n', ...
           family, complete, numel(seeds), agreeing, silent, unsound);
end

inputs = argv();
addpath(inputs{1}, inputs{2});
capeOpenWarnings(0);
families = inputs(5:end);
if isempty(families)
    families = {'natural_gas', 'carbon_dioxide', 'reservoir', 'refrigerants', 'sour', 'hydrocarbon_water', 'alcohol_water'};
end
for k = 1:numel(families)
    run_family(families{k}, str2double(inputs{3}):str2double(inputs{4}));
end
