% Envelopes of many random mixtures against the package's flashes; not one of the tests, it takes some minutes:
% octave-cli tests/toolbox/campaign_envelopes.m TOOLBOX VERDANTH FIRST LAST [FAMILY ...]
% Prints what is not complete and what is not the flash's, and a summary of each family.
1;
addpath(fullfile(fileparts(mfilename('fullpath')), 'support'));

function run_family(family, seeds)
    all = struct('reason', {}, 'arrives', {}, 'complete', {}, 'sound', {}, 'missed', {}, 'distance', {}, 'told', {});
    for seed = seeds
        [package, Z] = mixture_of_family(family, seed);
        h = capeOpenCreate('Verdanth Reference Packages', package);
        try
            found = envelope_against_flashes(h, Z);
        catch failure
            found = struct('reason', ['error: ' failure.message], 'arrives', false, 'complete', false, 'sound', true, ...
                           'missed', 0, 'distance', Inf, 'told', true);
        end
        capeOpenRelease(h);
        all(end + 1) = found;
        if ~found.sound
            printf('%s %d: the critical point is none of the flash. %s\n', family, seed, found.reason);
        end
        if ~found.complete || found.distance > 1e-6 || found.missed > 0
            printf('%s %d: arrives %d, off by %.1e, %d points without an answer. %s\n', family, seed, found.arrives, ...
                   found.distance, found.missed, found.reason);
        end
    end
    silent = ~[all.complete] & cellfun(@isempty, {all.reason});
    printf(['== %s: %d of %d complete, %d arrive, %d within 1e-6 of the flash, %d not and without a word, ' ...
            '%d points without an answer, %d incomplete without a reason, %d critical points in doubt\n'], family, ...
           sum([all.complete]), numel(all), sum([all.arrives]), sum([all.distance] <= 1e-6), sum(~[all.told]), ...
           sum([all.missed]), sum(silent), sum(~[all.sound]));
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
