function warnOfOpenEnds(drawing, reasons)
%warnOfOpenEnds  Says what of a drawing is not complete, if anything is: REASONS are sentences in a cell array.
if ~isempty(reasons)
    warning('Verdanth:warning', 'The %s is not complete: %s', drawing, strjoin(reasons, '; '));
end
end
