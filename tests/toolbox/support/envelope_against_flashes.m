function found = envelope_against_flashes(h, Z)
% The envelope of a mixture from 1 bar on against the package's own flash. FOUND has the fields
%   arrives   whether it begins with dew points, passes a critical point and ends with bubble points at 1 bar
%   complete  whether it does without a word on what is not complete
%   reason    that word, or empty
%   distance  how far dew and bubble points are from those that the flash finds at the same pressure or temperature: the
%             largest of the relative distances
%   told      whether all points are the flash's to a millionth, or the reason says that it finds other phases or fails
%   missed    the number of points that the flash does not answer
%   sound     whether there is no critical point, or flashes around it find one phase to one side and two that are nearly
%             the same to another
lastwarn('');
[T, P, vapor, critical] = capeOpenPhaseEnvelope(h, Z);
found = struct('reason', lastwarn());
last = find(vapor == 0, 1, 'last');
found.arrives = ~any(isnan(critical)) && ~isempty(last) && P(last) < 1e5 * (1 + 1e-6) && vapor(1) == 1;
found.complete = found.arrives && isempty(found.reason);
distances = NaN(size(T));
kinds = {'Unspecified', 'Normal', 'Retrograde'};
for kind = 1:6
    open = find(~isnan(vapor) & ~(distances < 1e-6));
    if isempty(open)
        break
    end
    if kind <= 3
        flashed = capeOpenMultiFlash(h, Z, 'Pressure', P(open), 'vaporFraction', vapor(open), kinds{kind}, 'Temperature');
        off = abs(flashed ./ T(open) - 1);
    else
        flashed = capeOpenMultiFlash(h, Z, 'Temperature', T(open), 'vaporFraction', vapor(open), kinds{kind - 3}, 'Pressure');
        off = abs(flashed ./ P(open) - 1);
    end
    distances(open) = min(distances(open), off);
end
% Where the flash has answered with another solution: there and a millionth to either side it finds different phases.
for k = find(~isnan(vapor) & ~(distances < 1e-6)).'
    for shift = {[1e-6 0], [0 1e-6]}
        off = shift{1};
        names = arrayfun(@(side) phases_at(h, Z, T(k) * (1 + side * off(1)), P(k) * (1 + side * off(2))), [-1 0 1], ...
                         'UniformOutput', false);
        names(cellfun(@isempty, names)) = [];
        if numel(names) > 1 && !isequal(names{:})
            distances(k) = 1e-6;
        end
    end
end
found.sound = isnan(critical(1)) || sound_critical_point(h, Z, critical);
found.missed = sum(isnan(distances) & ~isnan(vapor));
found.distance = max([distances; 0]);
found.told = all(distances <= 1e-6 | isnan(vapor)) ...
             || ~isempty(regexp(found.reason, 'flash (finds other phases|of the mixture fails) at', 'once'));
end

function phases = phases_at(h, Z, T, P)
try
    phases = capeOpenFlash(h, Z, 'Temperature', T, 'Pressure', P, 'Unspecified');
catch
    phases = {};
end
end

% A narrow envelope may lie between two of the directions, in one of which the flash finds a vapor and in the next a liquid.
function sound = sound_critical_point(h, Z, critical)
turns = linspace(0, 2 * pi, 73);
names = cell(1, 73);
nearest = Inf;
for k = 1:73
    [names{k}, apart] = phases_beside(h, Z, critical, turns(k));
    nearest = min(nearest, apart);
end
for k = find(cellfun(@numel, names(1:72)) == 1 & cellfun(@numel, names(2:73)) == 1)
    low = turns(k);
    high = turns(k + 1);
    while ~isequal(names{k}, names{k + 1}) && high - low > 1e-9 && isinf(nearest)
        middle = (low + high) / 2;
        [found, nearest] = phases_beside(h, Z, critical, middle);
        if isequal(found, names{k})
            low = middle;
        else
            high = middle;
        end
    end
end
sound = any(cellfun(@numel, names) == 1) && nearest < 0.25;
end

function [names, apart] = phases_beside(h, Z, critical, turn)
apart = Inf;
names = {};
shift = 2e-3 * [cos(turn), 6 * sin(turn)];
try
    [names, ~, X] = capeOpenFlash(h, Z, 'Temperature', critical(1) * (1 + shift(1)), ...
                                  'Pressure', critical(2) * (1 + shift(2)), 'Unspecified');
    if numel(names) == 2
        apart = max(abs(diff(X)));
    end
catch
end
end
