classdef Package < handle
%capeopen.Package  A property package as an object.
%
%   p = capeopen.Package(manager, package)
%   p = capeopen.Package(name)
%   p = capeopen.Package(manager, package, 'Units', units)
%
%   Opens a property package, and closes it when the last variable that holds
%   it goes. Arguments are those of capeOpenCreate; the second form is for a
%   stand-alone package.
%
%   Arguments:
%     manager  text, a name that capeOpenManagerList gives
%     package  text, a name that capeOpenPackageList gives for the manager
%     name     text, the name of a stand-alone package
%     units    as the property Units
%
%   Properties:
%     Name     text, the name of the package
%     Compounds
%              n-by-1 cell array with the names of the compounds
%     Phases   k-by-1 cell array with the labels of the phases
%     MolecularWeights
%              double 1-by-n, in g/mol
%     Handle   int32 scalar, for the functions capeOpen...
%     Units    cell array of the units in which the methods take and give values,
%              such as {'bar', 'degC', 'kJ'}, as capeOpenUnits knows them; what
%              is none of them is in SI. May be set at any time, and is empty
%              unless it was: then everything is in SI. The functions
%              capeOpen... are in SI always, and so are the numbers in errors.
%
%   Methods:
%     constant(name)
%              as capeOpenConstant
%     flash(Z, name1, value1, name2, value2, solution)
%              one phase equilibrium; solution may be left out. The result is
%              a struct with the fields phases (1-by-k cell array), fractions
%              (double 1-by-k), compositions (double k-by-n), T (in K) and P
%              (in Pa). Without a result it shows a table. Behind the arguments
%              there may be 'Properties', true: then density, enthalpy, entropy,
%              heatCapacityCp, heatCapacityCv and molarMass (in g / mol), each
%              double 1-by-k, are fields, too, NaN where the package has none.
%              'Table', true gives a table instead, with a row for each phase;
%              in Octave a struct with the same columns, and with Properties,
%              in which VariableNames and VariableUnits are those of a table.
%     multiflash(Z, name1, values1, name2, values2, solution, names)
%              as capeOpenMultiFlash; solution may be left out. 'Table', true
%              behind the arguments gives a table as above, with a row for each
%              flash: what was specified, and what names tell. With 'Parallel',
%              true it is calculated on several processors, see
%              capeOpenMultiFlashParallel.
%     single(names, T, P, X, phase, failing)
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
%     'Not a known unit: "..."'
%             Units are those that capeOpenUnits lists.
%
%   Example:
%     p = capeopen.Package('Verdanth Reference Packages', 'Natural gas')
%     X = [0.8 0.08 0.05 0.02 0 0.01 0 0 0.02 0.02 0];
%     p.flash(X, 'Temperature', 220, 'Pressure', 40e5)
%     r = p.flash(X, 'Temperature', 220, 'Pressure', 40e5);
%     density = p.single('density', r.T, r.P, r.compositions(1, :), r.phases{1})
%     q = capeopen.Package('Verdanth Reference Packages', 'Natural gas', ...
%         'Units', {'bar', 'degC', 'kJ'});
%     q.flash(struct('methane', 0.9, 'ethane', 0.1), ...
%         'Temperature', -70, 'Pressure', 30, 'Properties', true)
%     clear p q
%
%   See also capeOpenCreate, capeOpenFlash, capeOpenMultiFlash, capeOpenSinglePhaseProp, capeOpenUnits.
    properties (SetAccess = private)
        Handle = int32(-1)
    end
    properties
        Units = {}
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
        function self = Package(varargin)
            [given, options] = capeopen.internal.options(varargin, struct('Units', {{}}));
            if isempty(given)
                error('Verdanth:error', ['capeopen.Package(manager, package) opens a package of a manager, and ' ...
                                         'capeopen.Package(name) a stand-alone package; there are "%s"'], ...
                      strjoin(capeOpenManagerList().', '", "'));
            elseif numel(given) < 2
                given{2} = '';
            end
            self.Units = options.Units;
            before = capeOpenHandleList();
            handle = capeOpenCreate(given{:});
            self.Handle = handle;
            self.opened = given;
            capeopen.internal.users(handle, 1, any(before == handle));
            self.guard = onCleanup(@() capeopen.internal.users(handle, -1));
        end

        function delete(self)
            try
                self.guard = [];
                self.Handle = int32(-1);
            catch
                % Octave has forgotten after 'clear functions' that these are the object's own; the library is gone then
            end
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

        function set.Units(self, units)
            units = capeopen.internal.charsOf(units);
            if ~iscell(units)
                units = cellstr(units);
            end
            capeOpenUnits('', units); % it refuses what is no unit
            self.Units = units(:).';
        end

        function varargout = constant(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenConstant(self.Handle, varargin{:});
            if ~isempty(self.Units)
                varargout = self.shown(varargout, varargin{1});
            end
        end

        function varargout = tdep(self, varargin)
            [varargout{1:max(nargout, 1)}] = self.inUnits(@capeOpenTDependentProp, varargin, {2, 'temperature'});
        end

        function varargout = pdep(self, varargin)
            [varargout{1:max(nargout, 1)}] = self.inUnits(@capeOpenPDependentProp, varargin, {2, 'pressure'});
        end

        function varargout = single(self, varargin)
            if isempty(self.Units) % the short way, for loops
                [varargout{1:max(nargout, 1)}] = capeOpenSinglePhaseProp(self.Handle, varargin{:});
            else
                [varargout{1:max(nargout, 1)}] = self.inUnits(@capeOpenSinglePhaseProp, varargin, ...
                                                              {2, 'temperature'; 3, 'pressure'});
            end
        end

        function varargout = twophase(self, varargin)
            [varargout{1:max(nargout, 1)}] = self.inUnits(@capeOpenTwoPhaseProp, varargin, ...
                                                          {2, 'temperature'; 3, 'pressure'});
        end

        function varargout = multiflash(self, varargin)
            if isempty(self.Units) && numel(varargin) < 8 % no options
                [varargout{1:max(nargout, 1)}] = capeOpenMultiFlash(self.Handle, varargin{:});
                return
            end
            [asked, options] = capeopen.internal.options(varargin, struct('Table', false, 'Parallel', false));
            calculate = @(varargin) capeOpenMultiFlash(self.Handle, varargin{:});
            if options.Parallel
                calculate = @(varargin) capeOpenMultiFlashParallel(self.opened{:}, varargin{:});
            end
            given = self.takenByFlash(asked);
            if ~options.Table
                [varargout{1:max(nargout, 1)}] = calculate(given{:});
                varargout = self.shown(varargout, given{end});
                return
            end
            names = capeopen.internal.namesOf(given{end});
            columns = cell(1, numel(names));
            [columns{:}] = calculate(given{:});
            columns = self.shown(columns, names);
            for k = [4, 2] % what was specified comes first
                name = capeopen.internal.namesOf(asked{k});
                if ~any(strcmpi(name, names))
                    values = double(full(asked{k + 1}));
                    names = [name, names]; %#ok<AGROW>
                    columns = [{values(:) + zeros(size(columns{1}))}, columns]; %#ok<AGROW>
                end
            end
            units = cellfun(@(name) self.unit(name), names, 'UniformOutput', false);
            varargout{1} = capeopen.internal.tableOf(names, columns, units);
        end

        function varargout = flash(self, varargin)
            short = numel(varargin) < 7 && nargout > 0 && isempty(self.Units); % for loops
            if ~short
                [varargin, options] = capeopen.internal.options(varargin, struct('Table', false, 'Properties', false));
                varargin = self.takenByFlash(varargin);
            end
            [phases, fractions, compositions, T, P] = capeOpenFlash(self.Handle, varargin{:});
            result = struct('phases', {phases(:).'}, 'fractions', fractions(:).', 'compositions', compositions, ...
                            'T', T, 'P', P);
            if short
                varargout{1} = result;
                return
            end
            [result, units] = self.detailed(result, options.Properties);
            if options.Table
                varargout{1} = capeopen.internal.tableOfFlash(result, units, self.unit('fraction'));
            elseif nargout == 0
                fprintf('%s', capeopen.internal.flashTable(result, self.Compounds, units));
            else
                varargout{1} = result;
            end
        end

        function varargout = unit(self, varargin)
            [varargout{1:max(nargout, 1)}] = capeOpenPropUnit(varargin{:});
            if ~isempty(self.Units)
                varargout{1} = capeOpenUnits(varargout{1}, self.Units);
            end
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

    methods (Access = private)
        % Arguments in SI; QUANTITIES has rows of a place among them and what stands there.
        function given = taken(self, given, quantities)
            for k = 1:size(quantities, 1) * ~isempty(self.Units)
                place = quantities{k, 1};
                if place <= numel(given) && isnumeric(given{place})
                    given{place} = self.converted(given{place}, quantities{k, 2}, true);
                end
            end
        end

        function varargout = inUnits(self, call, given, quantities)
            if isempty(self.Units)
                [varargout{1:nargout}] = call(self.Handle, given{:});
            else
                given = self.taken(given, quantities);
                [varargout{1:nargout}] = call(self.Handle, given{:});
                varargout = self.shown(varargout, given{1});
            end
        end

        % The result of a flash in the units of the object, with more of each phase if that is wanted; UNITS names them.
        function [result, units] = detailed(self, result, more)
            if more
                result = capeopen.internal.phaseDetails(self.Handle, result);
            end
            units = struct('molarMass', 'g / mol');
            quantities = [{'T', 'temperature'; 'P', 'pressure'}; repmat(setdiff(fieldnames(result), ...
                          {'phases', 'fractions', 'compositions', 'T', 'P', 'molarMass'}), 1, 2)];
            for k = 1:size(quantities, 1)
                [field, quantity] = quantities{k, :};
                units.(field) = self.unit(quantity);
                result.(field) = self.converted(result.(field), quantity, false);
            end
        end

        function given = takenByFlash(self, given)
            if numel(given) > 4
                given = self.taken(given, {3, given{2}; 5, given{4}});
            end
        end

        % Results in the units of the object.
        function values = shown(self, values, names)
            if isempty(self.Units)
                return
            end
            names = capeopen.internal.namesOf(names);
            for k = 1:min(numel(values), numel(names)) % behind the values of a batch there may be texts
                values{k} = self.converted(values{k}, names{k}, false);
            end
        end

        function values = converted(self, values, name, toSI)
            if isempty(self.Units)
                return
            elseif iscell(values) && ~iscellstr(values) %#ok<ISCLSTR>
                values = cellfun(@(part) self.converted(part, name, toSI), values, 'UniformOutput', false);
                return
            end
            try
                units = {capeOpenPropUnit(name), self.unit(name)};
            catch
                return % the library will refuse the name, or the package knows more constants than the library
            end
            if toSI
                units = units([2, 1]);
            end
            if isnumeric(values) && ~strcmp(units{:})
                values = capeOpenUnits(values, units{:});
            end
        end
    end
end
