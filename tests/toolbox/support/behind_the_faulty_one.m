function behind_the_faulty_one()
% Puts the faulty library before the one that is found, which goes on under the name VerdanthItself.
global linked
folder = fileparts(which('Verdanth'));
link = tempname();
mkdir(link);
linked = onCleanup(@() system(sprintf('rm -r "%s"', link)));
system(sprintf('ln -s "%s"/*.so "%s/registry.d" "%s"', folder, folder, link));
system(sprintf('ln -s "%s/Verdanth.mex" "%s/VerdanthItself.mex"', folder, link));
rmpath(folder);
addpath(link, fullfile(fileparts(fileparts(mfilename('fullpath'))), 'faulty'));
end
