% Draws the pictures of the page on diagrams: what each script on it draws is the picture that stands below it.
%   octave-cli docs/plots/diagrams.m TOOLBOX VERDANTH PAGE IMAGES
arguments = argv();
addpath(arguments{1}, arguments{2});
warning('off', 'all'); % what of them is not complete, the page says
graphics_toolkit('gnuplot');
set(0, 'DefaultFigureVisible', 'off', 'DefaultLineLineWidth', 1.5);
scripts = regexp(fileread(arguments{3}), '```matlab\n(.*?)```\s*!\[[^\]]*\]\(([^)]*)\)', 'tokens');
for k = 1:numel(scripts)
    figure('Position', [0 0 640 440]);
    eval(scripts{k}{1});
    print(gcf(), fullfile(arguments{4}, scripts{k}{2}), '-dpngcairo', '-r96');
    close all
end
