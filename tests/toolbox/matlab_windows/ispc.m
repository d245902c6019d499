function yes = ispc()
% MATLAB is asked on Windows.
yes = true;
end
