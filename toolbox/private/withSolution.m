function given = withSolution(given, place)
%withSolution  Puts 'Unspecified' at the place of the solution type in arguments of a flash that have none.
if numel(given) == 7
    given = [given(1:place - 1), {'Unspecified'}, given(place:end)];
end
end
