% Verdanth: CAPE-OPEN 1.1 property packages in MATLAB and Octave.
%
% Packages
%   capeOpenManagerList         - List the property package managers of this machine.
%   capeOpenPackageList         - List the packages of a package manager.
%   capeOpenCreate              - Open a property package.
%   capeOpenRelease             - Close a property package.
%   capeOpenHandleList          - List the handles of all open packages.
%   capeOpenName                - Name of an open package.
%
% What a package knows
%   capeOpenCompoundList        - List the compounds of a package.
%   capeOpenPhaseList           - List the phases that a package can calculate.
%   capeOpenPhaseState          - State of aggregation of a phase.
%   capeOpenConstantPropList    - List the compound constants that a package knows.
%   capeOpenTDependentPropList  - List the temperature-dependent properties of pure compounds.
%   capeOpenPDependentPropList  - List the pressure-dependent properties of pure compounds.
%   capeOpenSinglePhasePropList - List the properties that a package calculates for a phase.
%   capeOpenTwoPhasePropList    - List the properties that a package calculates for two phases.
%   capeOpenFlashPropList       - List what a flash can be specified by.
%
% Calculations
%   capeOpenComposition         - A composition from names and amounts of compounds.
%   capeOpenConstant            - A constant of all compounds.
%   capeOpenTDependentProp      - Temperature-dependent properties of all compounds.
%   capeOpenPDependentProp      - Pressure-dependent properties of all compounds.
%   capeOpenSinglePhaseProp     - Properties of one phase over arrays of conditions.
%   capeOpenTwoPhaseProp        - Properties of a pair of phases over arrays of conditions.
%   capeOpenFlash               - One phase equilibrium.
%   capeOpenMultiFlash          - Phase equilibria over arrays of conditions.
%
% Packages as objects, diagrams, long work
%   capeopen.Package            - A property package as an object.
%   capeOpenPhaseEnvelope       - Phase envelope of a mixture, calculated and drawn.
%   capeOpenPxy                 - Phase diagram of two compounds at one temperature, calculated and drawn.
%   capeOpenTxy                 - Phase diagram of two compounds at one pressure, calculated and drawn.
%   capeOpenPh                  - Pressure-enthalpy diagram of a mixture or a compound, calculated and drawn.
%   capeOpenTs                  - Temperature-entropy diagram of a mixture or a compound, calculated and drawn.
%   capeOpenCheck               - Check of a property package: what it offers, and whether its numbers fit together.
%   capeOpenCompare             - The same sample through two property packages: where they differ, and by how much.
%   capeOpenMultiFlashParallel  - Phase equilibria over arrays of conditions, on several processors.
%   capeOpenLastResults         - The rows that were done when a batch of flashes was stopped.
%
% Settings and information
%   capeOpenBasis               - Choose mole or mass basis.
%   capeOpenWarnings            - Switch warnings on or off.
%   capeOpenPropUnit            - Unit of a property.
%   capeOpenUnits               - Values in other units.
%   capeOpenBackend             - Choose where the library runs: in this process, in one of its own, or under Wine.
%   capeOpenVersion             - Version of the library.
%   capeOpenHelp                - Open the help file.
