function P = boilingPressures(model, kij, data)
% Pressures at which liquids of two compounds boil by the Peng-Robinson equation (1976), in Pa.
%
%   P = boilingPressures(model, kij, data)
%
%   MODEL has the fields Tc (K), Pc (Pa) and acentric with two values each, and the temperature T (K). Rows of DATA are
%   a pressure (Pa) and the mole fractions of the first compound in liquid and vapor; pressure and vapor are where the
%   search begins. Successive substitution.
R = 8.31446261815324; % J/(mol K)
m = 0.37464 + 1.54226 * model.acentric - 0.26992 * model.acentric .^ 2;
alpha = (1 + m .* (1 - sqrt(model.T ./ model.Tc))) .^ 2;
a = 0.457235 * (R * model.Tc) .^ 2 ./ model.Pc .* alpha;
b = 0.077796 * R * model.Tc ./ model.Pc;
pairs = sqrt(a(:) * a(:).') .* (1 - kij * [0 1; 1 0]);
P = data(:, 1);
for k = 1:numel(P)
    x = [data(k, 2), 1 - data(k, 2)];
    y = [data(k, 3), 1 - data(k, 3)];
    for iteration = 1:200
        liquid = lnPhi(pairs, b(:).', R * model.T, x, P(k), @min);
        vapor = lnPhi(pairs, b(:).', R * model.T, y, P(k), @max);
        partial = x .* exp(liquid - vapor) * P(k);
        change = sum(partial) / P(k) - 1;
        P(k) = sum(partial);
        y = partial / P(k);
        if abs(change) < 1e-10
            break
        end
    end
end
end

% Logarithms of the fugacity coefficients; CHOOSE picks the root of the phase.
function values = lnPhi(pairs, bs, RT, x, P, choose)
a = x * pairs * x.';
b = x * bs.';
A = a * P / RT ^ 2;
B = b * P / RT;
z = roots([1, B - 1, A - 3 * B ^ 2 - 2 * B, B ^ 3 + B ^ 2 - A * B]);
z = choose(real(z(abs(imag(z)) < 1e-9 & real(z) > B)));
ratio = bs / b;
values = ratio * (z - 1) - log(z - B) - A / (2 * sqrt(2) * B) * (2 * (x * pairs) / a - ratio) ...
         * log((z + (1 + sqrt(2)) * B) / (z + (1 - sqrt(2)) * B));
end
