function n = phases_at(h, Z, T, P)
% How many phases the flash finds at a temperature and pressure.
n = numel(capeOpenFlash(h, Z, 'Temperature', T, 'Pressure', P, 'Unspecified'));
end
