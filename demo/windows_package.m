% A flash by the reference packages for Windows, under Wine:
%
%   octave-cli demo/windows_package.m TOOLBOX VERDANTH PREFIX
%
% TOOLBOX is the folder of the functions, VERDANTH the one of Verdanth.mex, PREFIX Wine's.
inputs = argv();
addpath(inputs{1:2});
[~, details] = capeOpenBackend('windows', 'Prefix', inputs{3});
printf('%s\n', details);
h = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
[phases, fractions] = capeOpenFlash(h, {'methane', 0.8, 'n-butane', 0.2}, 'Temperature', 250, 'Pressure', 20e5);
for k = 1:numel(phases)
    printf('%s %.4f\n', phases{k}, fractions(k));
end
capeOpenRelease(h);
