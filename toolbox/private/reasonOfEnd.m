function reason = reasonOfEnd(model, z, line, ended, phase)
%reasonOfEnd  A sentence on where a curve of curveOf ends, and why.
%
%   ENDED is that of stableCurve, or -4 where the package's flash does not find the phases of the curve any more. PHASE,
%   'second liquid' or 'third phase', is what appears where vaporFraction is NaN.
last = numel(line.T);
v = line.points(end, :);
slope = line.slopes(end, :);
if ended > 0 || ended == -1
    why = 'they are followed no further';
elseif ended == -4
    why = 'the package''s flash does not find the same phases beyond';
elseif ended < -1
    why = 'a further phase appears there, and its line was not found';
else
    beyond = exp(v(end - 1:end) + 0.05 * slope(end - 1:end) / max(abs(slope(end - 1:end))));
    why = whyNoFurther(model, beyond(1), beyond(2), z);
end
names = {'bubble points', 'dew points', ['points where a ', phase, ' appears']};
kind = line.vaporFraction(last);
kind(isnan(kind)) = 2;
reason = sprintf('the %s end at %.5g K and %.5g bar: %s', names{kind + 1}, line.T(last), line.P(last) / 1e5, why);
end
