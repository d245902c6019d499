classdef Package < handle
%capeopen.Package  A property package as an object.
%
%   p = capeopen.Package(manager, package)
%   p = capeopen.Package(name)
%
%   Opens a property package, and closes it when the last variable that holds
%   it goes. Arguments are those of capeOpenCreate; the second form is for a
%   stand-alone package.
%
%   Arguments:
%     manager  text, a name that capeOpenManagerList gives
%     package  text, a name that capeOpenPackageList gives for the manager
%     name     text, the name of a stand-alone package
%
%   Properties:
%     Name     text, the name of the package
%     Compounds
%              n-by-1 cell array with the names of the compounds
%     Phases   k-by-1 cell array with the labels of the phases
%     MolecularWeights
%              double 1-by-n, in g/mol
%     Handle   int32 scalar, for the functions capeOpen...
%
%   Methods:
%     constant(name)
%              as capeOpenConstant
%     flash(Z, name1, value1, name2, value2, solution)
%              one phase equilibrium; solution may be left out. The result is
%              a struct with the fields phases (1-by-k cell array), fractions
%              (double 1-by-k), compositions (double k-by-n), T (in K) and P
%              (in Pa). Without a result it shows a table.
%     multiflash(Z, name1, values1, name2, values2, solution, names)
%              as capeOpenMultiFlash; solution may be left out. With 'Parallel',
%              true behind the names it is calculated on several processors,
%              see capeOpenMultiFlashParallel.
%     single(names, T, P, X, phase)
%              as capeOpenSinglePhaseProp
%     twophase(names, T, P, X1, X2, phase1, phase2)
%              as capeOpenTwoPhaseProp
%     tdep(names, T)
%              as capeOpenTDependentProp
%     pdep(names, P)
%              as capeOpenPDependentProp
%     unit(name)
%              as capeOpenPropUnit
%     delete()
%             closes the package at once
%
%   Objects for the same package share one handle, and the last of them closes
%   it. A package that capeOpenCreate opened before them stays open.
%
%   Errors:
%     'Expected string for package manager name'
%             The arguments of the constructor must be texts. These and all
%             other errors are those of the functions that are called.
%     'Invalid property package handle'
%             The package was closed, by capeOpenRelease or by clearing
%             Verdanth.
%
%   Example:
%     p = capeopen.Package('Verdanth Reference Packages', 'Natural gas')
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     p.flash(X, 'Temperature', 220, 'Pressure', 40e5)
%     r = p.flash(X, 'Temperature', 220, 'Pressure', 40e5);
%     density = p.single('density', r.T, r.P, r.compositions(1, :), r.phases{1})
%     clear p
%
%   See also capeOpenCreate, capeOpenFlash, capeOpenMultiFlash, capeOpenSinglePhaseProp.
    properties (SetAccess = private)
        Handle = int32(-1)
    end
    properties (Dependent, SetAccess = private)
        Name
        Compounds
        Phases
        MolecularWeights
    end
    properties (Access = private, Hidden)
        opened % the arguments of capeOpenCreate
        guard % closes the package when the object goes: not every release of Octave calls delete then
    end

    methods
        function self = Package(manager, package)
            if nargin < 2
                package = '';
            end
            before = capeOpenHandleList();
            handle = capeOpenCreate(manager, package);
            self.Handle = handle;
            self.opened = {manager, package};
            capeopen.internal.users(handle, 1, any(before == handle));
            self.guard = onCleanup(@() capeopen.internal.users(handle, -1));
        end

        function delete(self)
            self.guard = [];
            self.Handle = int32(-1);
        end

        function text = get.Name(self)
            text = capeOpenName(self.Handle);
        end

        function names = get.Compounds(self)
            names = capeOpenCompoundList(self.Handle);
        end

        function labels = get.Phases(self)
            labels = capeOpenPhaseList(self.Handle);
        end

        function weights = get.MolecularWeights(self)
            weights = capeOpenConstant(self.Handle, 'molecularWeight');
        end

        function varargout = constant(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenConstant(self.Handle, varargin{:});
        end

        function varargout = tdep(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenTDependentProp(self.Handle, varargin{:});
        end

        function varargout = pdep(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenPDependentProp(self.Handle, varargin{:});
        end

        function varargout = single(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenSinglePhaseProp(self.Handle, varargin{:});
        end

        function varargout = twophase(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenTwoPhaseProp(self.Handle, varargin{:});
        end

        function varargout = multiflash(self, varargin)
            several = false;
            if numel(varargin) > 7 && ischar(varargin{end - 1}) && strcmpi(varargin{end - 1}, 'Parallel')
                several = varargin{end};
                varargin = varargin(1:end - 2);
            end
            if numel(varargin) == 6
                varargin = [varargin(1:5), {'Unspecified'}, varargin(6)];
            end
            if several
                [varargout{1:max(nargout, 1)}] = capeOpenMultiFlashParallel(self.opened{:}, varargin{:});
            else
                [varargout{1:max(nargout, 1)}] = capeOpenMultiFlash(self.Handle, varargin{:});
            end
        end

        function varargout = flash(self, varargin)
            if numel(varargin) == 5
                varargin{6} = 'Unspecified';
            end
            [phases, fractions, compositions, T, P] = capeOpenFlash(self.Handle, varargin{:});
            result = struct('phases', {phases(:).'}, 'fractions', fractions(:).', 'compositions', compositions, ...
                            'T', T, 'P', P);
            if nargout == 0
                fprintf('%s', capeopen.internal.flashTable(result, self.Compounds));
            else
                varargout{1} = result;
            end
        end

        function varargout = unit(~, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenPropUnit(varargin{:});
        end

        function disp(self)
            deleted = ~exist('OCTAVE_VERSION', 'builtin') && ~isvalid(self); % Octave keeps what is deleted, empty
            if deleted || ~any(capeOpenHandleList() == self.Handle)
                fprintf('  a package that was closed\n\n');
                return
            end
            names = self.Compounds;
            labels = self.Phases;
            fprintf('  %s\n', self.Name);
            fprintf('    %d compounds: %s\n', numel(names), strjoin(names(:).', ', '));
            fprintf('    %d phases: %s\n\n', numel(labels), strjoin(labels(:).', ', '));
        end
    end
end
