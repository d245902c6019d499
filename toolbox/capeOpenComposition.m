function Z = capeOpenComposition(handle, amounts, option)
%capeOpenComposition  A composition from names and amounts of compounds.
%
%   Z = capeOpenComposition(handle, amounts, option)
%
%   Gives an array as all functions take it, with a column for each compound of
%   the package. They take names and amounts themselves, too, and go this way;
%   this function serves to keep the array, and to normalize it.
%
%   Arguments:
%     handle  int32 scalar from capeOpenCreate
%     amounts
%             names and amounts of compounds, any of
%               struct('methane', 0.8, 'n_butane', 0.2)
%               {'methane', 0.8, 'n-butane', 0.2}
%               {{'methane', 'n-butane'}, [0.8 0.2]}
%             A name is the compound's name in the package, its chemical
%             formula or its CAS number. Capital and small letters are alike in
%             a name, and blanks and signs do not count. In a struct or in the
%             second form an amount may be a column, for as many rows. An array
%             with a column for each compound is there to be normalized.
%     option  'normalized' divides each row by its sum; left out, amounts stay
%             as they are
%
%   Results:
%     Z       double N-by-n, 0 for compounds that are not named
%
%   Errors:
%     'Invalid number of arguments for capeOpenComposition'
%             There are fewer than have to be given.
%     'Invalid property package handle'
%             The package is not open: it was released, MATLAB cleared
%             Verdanth, or the value is not an int32 scalar.
%     'The package has no compound "..."'
%             Neither a name nor a formula nor a CAS number is this. Names that
%             are near it follow.
%     '"..." may be ...'
%             Several compounds of the package have this formula.
%     'The compound "..." is there twice'
%             Two names mean the same compound.
%     '... names of compounds, but ... amounts'
%             There is to be one amount for each name.
%     'The compound "..." has ... amounts in a composition of ...'
%             Amounts are single numbers or columns of the same length.
%     'A composition by names has a name and an amount for each compound'
%             The amounts are in none of the forms.
%     'Amounts of a composition that is normalized have to add up to more than zero'
%             A row has nothing in it.
%     'Expected 'normalized' or nothing behind the amounts'
%             The option is something else.
%
%   Example:
%     handle = capeOpenCreate('Verdanth Reference Packages', 'Natural gas');
%     Z = capeOpenComposition(handle, struct('methane', 8, 'CO2', 2), 'normalized');
%     density = capeOpenSinglePhaseProp(handle, 'density', 300, 1e5, Z, 'Vapor')
%     capeOpenRelease(handle)
%
%   See also capeOpenCompoundList, capeOpenFlash.
if nargin < 2
    error('Verdanth:error', 'Invalid number of arguments for capeOpenComposition');
end
given = libraryArguments({handle, amounts});
handle = given{1};
Z = given{2};
if ~isa(Z, 'double') % the only form that has no number beside a name is one that has no number
    Z = compositionOf(handle, Z);
end
if nargin < 3
    return
end
option = libraryArguments({option});
if ~strcmpi(option{1}, 'normalized')
    error('Verdanth:error', 'Expected ''normalized'' or nothing behind the amounts');
elseif ~all(sum(Z, 2) > 0)
    error('Verdanth:error', 'Amounts of a composition that is normalized have to add up to more than zero');
end
Z = bsxfun(@rdivide, Z, sum(Z, 2));
end
