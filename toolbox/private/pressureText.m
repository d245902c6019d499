function text = pressureText(P)
%pressureText  A pressure in Pa with the prefix that leaves few digits.
units = {'Pa', 'kPa', 'MPa', 'GPa'};
power = max(0, min(3, floor(log10(P) / 3 + 1e-9)));
text = sprintf('%.3g %s', P / 1000 ^ power, units{1 + power});
end
