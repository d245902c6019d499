% Runs an example of the toolbox in Octave and saves the figure that it makes:
%
%   octave-cli demo/run_example.m TOOLBOX VERDANTH EXAMPLE PICTURE.png
%
% TOOLBOX is the folder of the functions, VERDANTH the one of Verdanth.mex. No display is needed.
run_example_inputs = argv(); % a name of its own, since an example runs in this workspace
addpath(run_example_inputs{1:2});
warning('off', 'Octave:gnuplot-graphics');
graphics_toolkit('gnuplot');
set(0, 'DefaultFigureVisible', 'off', 'DefaultFigurePosition', [0 0 900 560], 'DefaultFigurePaperPositionMode', 'auto');
source(fullfile(run_example_inputs{1}, 'examples', [run_example_inputs{3}, '.m']));
warning('off', 'all'); % on Ghostscript, which this kind of picture does without
print(gcf(), '-dpngcairo', '-r100', run_example_inputs{4});
