function at = flashStates(s, flashes)
%flashStates  The states of flashes of the sample.
at = statesOf(s, '', [flashes.T], [flashes.P], vertcat(flashes.Z));
end
