function lines = extrapolatedLines(value, size)
%extrapolatedLines  The lines that compare an expression with what extrapolated makes of d2, d3 and h.
lines = {sprintf('deviation = abs(%s - (4 * d3 - d2) / 3)', value)
         sprintf('limit = 3 * abs(d3 - d2) + 1e4 * eps * (%s) / (h / 4)', size)};
end
