function [complete, distance, missed, reason] = envelope_against_flashes(h, Z)
% The envelope of a mixture from 1 bar on, and how far its dew and bubble points are from those that the package's own
% flash finds at the same pressure or temperature: the largest of the relative distances, and the number of points that
% the flash does not answer. It is complete if it passes a critical point and ends with bubble points at 1 bar.
lastwarn('');
[T, P, vapor, critical] = capeOpenPhaseEnvelope(h, Z);
[reason, ~] = lastwarn();
last = find(vapor == 0, 1, 'last');
complete = ~any(isnan(critical)) && ~isempty(last) && P(last) < 1e5 * (1 + 1e-6) && vapor(1) == 1;
distances = NaN(size(T));
kinds = {'Unspecified', 'Normal', 'Retrograde'};
for kind = 1:6
    open = find(~isnan(vapor) & ~(distances < 1e-6));
    if isempty(open)
        break
    end
    if kind <= 3
        found = capeOpenMultiFlash(h, Z, 'Pressure', P(open), 'vaporFraction', vapor(open), kinds{kind}, 'Temperature');
        off = abs(found ./ T(open) - 1);
    else
        found = capeOpenMultiFlash(h, Z, 'Temperature', T(open), 'vaporFraction', vapor(open), kinds{kind - 3}, 'Pressure');
        off = abs(found ./ P(open) - 1);
    end
    distances(open) = min(distances(open), off);
end
% Where the flash has answered with another solution: a millionth to one side there is all or no vapor, and not so to
% the other side.
open = find(~isnan(vapor) & ~(distances < 1e-6));
for shift = {[1 0], [0 1]}
    if isempty(open)
        break
    end
    off = 1e-6 * shift{1};
    one = capeOpenMultiFlash(h, Z, 'Temperature', T(open) * (1 - off(1)), 'Pressure', P(open) * (1 - off(2)), ...
                             'Unspecified', 'vaporFraction');
    other = capeOpenMultiFlash(h, Z, 'Temperature', T(open) * (1 + off(1)), 'Pressure', P(open) * (1 + off(2)), ...
                               'Unspecified', 'vaporFraction');
    changes = xor(one == vapor(open), other == vapor(open)) & ~isnan(one) & ~isnan(other);
    distances(open(changes)) = 1e-6;
end
missed = sum(isnan(distances) & ~isnan(vapor));
distance = max([distances; 0]);
end
