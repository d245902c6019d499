function some = wholeFlashes(s, flashes)
%wholeFlashes  The numbers of the flashes that succeeded, with a fraction and a composition in numbers for each phase.
whole = @(f) isempty(f.problem) && ~isempty(f.phases) && numel(f.fractions) == numel(f.phases) ...
    && isequal(size(f.X), [numel(f.phases), s.n]) && all(isfinite([f.fractions(:); f.X(:)]));
some = find(arrayfun(whole, flashes));
end
