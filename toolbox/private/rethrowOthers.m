function rethrowOthers(failure)
%rethrowOthers  Lets only errors of the functions capeOpen... pass in silence: raises any other again.
if ~strcmp(failure.identifier, 'Verdanth:error')
    rethrow(failure);
end
end
