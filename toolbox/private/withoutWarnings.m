function restore = withoutWarnings()
%withoutWarnings  Keeps trials that fail from warning, until RESTORE goes: rows of a flash, and singular equations.
%
%   The library's warnings have no identifier by which they could be switched off alone.
before = warning('off', 'all');
restore = onCleanup(@() warning(before));
end
