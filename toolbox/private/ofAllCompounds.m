function X = ofAllCompounds(model, x)
%ofAllCompounds  Fractions of all compounds of the package, from rows of those of the present ones of equilibriumModel.
X = zeros(size(x, 1), model.count);
X(:, model.compounds) = x;
end
