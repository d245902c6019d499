% Calculates the curves of the plots on the page of the reference packages, as tables for gnuplot:
%   octave-cli docs/plots/curves.m TOOLBOX VERDANTH FOLDER
1;
set(0, 'DefaultFigureVisible', 'off');

% Blocks are parted by two empty lines, by which gnuplot counts them.
function write_table(folder, name, blocks)
    file = fopen(fullfile(folder, [name '.dat']), 'w');
    for k = 1:numel(blocks)
        fprintf(file, [repmat('%.8g\t', 1, columns(blocks{k})) '\n'], blocks{k}.');
        fprintf(file, '\n\n');
    end
    fclose(file);
end

% The envelope of a natural gas, its critical point, and lines of constant vapor fraction.
function envelope(folder)
    h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
    X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
    [T, P, vapor, critical] = capeOpenPhaseEnvelope(h, X);
    blocks = {[T(vapor == 1), P(vapor == 1); critical], [critical; T(vapor == 0), P(vapor == 0)], critical};
    temperatures = (130:1:300)';
    for fraction = [0.95 0.8 0.5]
        line = zeros(0, 2);
        for type = {'Normal', 'Retrograde'} % up along one and back along the other
            pressures = capeOpenMultiFlash(h, X, 'Temperature', temperatures, 'vaporFraction', fraction, type{1}, 'Pressure');
            there = ~isnan(pressures) & pressures > 1e5;
            line = [line; temperatures(there), pressures(there)];
            temperatures = flipud(temperatures);
        end
        blocks{end + 1} = line;
    end
    write_table(folder, 'envelope', blocks);
    capeOpenRelease(h);
end

function pressures_of_methanol_and_water(folder)
    h = capeOpenCreate('Verdanth Reference Packages', 'Water and light alcohols');
    [x, P, y] = capeOpenPxy(h, {'methanol', 'water'}, 333.15);
    write_table(folder, 'methanol_water', {[x, P, y]});
    capeOpenRelease(h);
end

function temperatures_of_benzene_and_toluene(folder)
    h = capeOpenCreate('Verdanth Reference Packages', 'Aromatics');
    [x, T, y] = capeOpenTxy(h, {'benzene', 'toluene'}, 101325);
    write_table(folder, 'benzene_toluene', {[x, T, y]});
    capeOpenRelease(h);
end

% Density of boiling propane by both equations, and by the correlation of its data.
function densities_of_propane(folder)
    T = (100:2:366)';
    blocks = {};
    for name = {'All compounds (Peng-Robinson)', 'All compounds (Soave-Redlich-Kwong)'}
        h = capeOpenCreate('Verdanth Reference Packages', name{1});
        X = double(strcmp(capeOpenCompoundList(h), 'propane')(:)');
        P = capeOpenMultiFlash(h, X, 'Temperature', T, 'vaporFraction', 0, 'Unspecified', 'Pressure');
        blocks{end + 1} = [T, capeOpenSinglePhaseProp(h, 'density', T, P, X, 'Liquid')];
        volumes = capeOpenTDependentProp(h, 'volumeOfLiquid', T);
        capeOpenRelease(h);
    end
    blocks{end + 1} = [T, 1 ./ volumes(:, X == 1)];
    write_table(folder, 'propane', blocks);
end

arguments = argv();
addpath(arguments{1}, arguments{2});
capeOpenWarnings(0);
envelope(arguments{3});
pressures_of_methanol_and_water(arguments{3});
temperatures_of_benzene_and_toluene(arguments{3});
densities_of_propane(arguments{3});
