function yes = ispc()
% Octave is on Windows.
yes = true;
end
