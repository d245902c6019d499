function table = checkTable()
%checkTable  The checks of a package in their order: name, what it asks in a sentence, and the function that does it.
%
%   Each function takes the sample and what has been found so far, and gives the latter with its own added.
table = {
    'casNumbers', 'CAS numbers are well-formed and have the right check digits', @checkCas
    'molecularWeights', 'Molecular weights are those of the formulas', @checkFormulas
    'constants', 'Listed constants are there and fit together', @checkConstants
    'pureProperties', 'Properties of pure compounds are there and fit together', @checkPure
    'listedProperties', 'Listed properties of phases are there and are numbers', @checkListed
    'unlistedProperties', 'What can be calculated is listed, once, in any letters', @checkUnlisted
    'twoPhases', 'Properties of pairs of phases are there and fit those of the phases', @checkTwoPhase
    'temperatureDerivatives', 'Listed derivatives by temperature agree with differences', @(s, ...
        t) checkDerivatives(s, t, 'T')
    'pressureDerivatives', 'Listed derivatives by pressure agree with differences', @(s, t) checkDerivatives(s, t, 'P')
    'moleDerivatives', 'Listed derivatives by moles agree with differences', @(s, t) checkMoles(s, t, '.Dmoles')
    'fractionDerivatives', 'Listed derivatives by mole fractions agree with differences', @(s, t) checkMoles(s, t, ...
        '.DmolFraction')
    'relations', 'Properties are the derivatives of others that they should be', @checkRelations
    'volumes', 'Volume, density, compressibilities and molar mass fit together', @(s, t) checkIdentities(s, t, ...
        identityTable('volumes'))
    'energies', 'Enthalpy, entropy and the energies fit together', @(s, t) checkIdentities(s, t, ...
        identityTable('energies'))
    'heatCapacities', 'Heat capacities, speed of sound and Joule-Thomson coefficient fit the volume', @(s, ...
        t) checkIdentities(s, t, identityTable('heatCapacities'))
    'fugacities', 'Fugacities fit together and with the volume', @(s, t) checkIdentities(s, t, ...
        identityTable('fugacities'))
    'lowPressures', 'A vapor at low pressure becomes an ideal gas', @checkLowPressures
    'moles', 'Derivatives by moles obey Euler, Gibbs-Duhem and symmetry', @checkEuler
    'flashes', 'Flashes at temperature and pressure are balanced equilibria', @checkFlashes
    'stability', 'Phases of flashes are stable by their own fugacities', @checkStability
    'boundaries', 'Dew and bubble points are where the phases of flashes change', @checkBoundaries
    'roundTrips', 'Flashes by other specifications meet them, and come out the same again', @checkTrips
    'massFlashes', 'Flashes in mass basis give the states of those in mole basis', @checkMassFlashes
    'batches', 'Values are the same alone, among others and in any order', @checkBatches
    'bases', 'Values in mass basis are those in mole basis over the molar mass', @checkBases
    'errors', 'What is wrong is refused, with words that say why, and leaves the rest as it was', @checkErrors
    'warnings', 'Calls with nothing wrong in them do not warn', @checkWarnings
    'times', 'No state is much slower than others, and no batch than calls of one row', @checkTimes
    'manyCalls', 'Many calls take no more memory each, and no more time', @checkManyCalls
    };
end
