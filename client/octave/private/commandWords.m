function [name, handlePlace, calculates] = commandWords(code)
%commandWords  The function of a command's number, which argument behind that number is its handle (0 for none), and
%whether it calculates.
persistent commands
if isempty(commands)
    commands = {
        1, 'capeOpenManagerList', 0, false
        2, 'capeOpenPackageList', 0, false
        3, 'capeOpenCreate', 0, false
        4, 'capeOpenRelease', 1, false
        5, 'capeOpenHandleList', 0, false
        6, 'capeOpenName', 1, false
        7, 'capeOpenCompoundList', 1, false
        8, 'capeOpenPhaseList', 1, false
        9, 'capeOpenPhaseState', 1, false
        10, 'capeOpenConstantPropList', 1, false
        11, 'capeOpenTDependentPropList', 1, false
        12, 'capeOpenPDependentPropList', 1, false
        13, 'capeOpenSinglePhasePropList', 1, false
        14, 'capeOpenTwoPhasePropList', 1, false
        15, 'capeOpenFlashPropList', 1, false
        16, 'capeOpenConstant', 1, false
        17, 'capeOpenWarnings', 0, false
        18, 'capeOpenBasis', 0, false
        19, 'capeOpenPropUnit', 0, false
        20, 'capeOpenTDependentProp', 2, true
        21, 'capeOpenPDependentProp', 2, true
        22, 'capeOpenSinglePhaseProp', 2, true
        23, 'capeOpenTwoPhaseProp', 2, true
        24, 'capeOpenFlash', 1, true
        25, 'capeOpenMultiFlash', 1, true
        26, 'capeOpenVersion', 0, false
        28, 'capeOpenHelp', 0, false
        };
end
row = find([commands{:, 1}] == code);
if isempty(row)
    [name, handlePlace, calculates] = deal('', 0, false);
else
    [name, handlePlace, calculates] = commands{row, 2:4};
end
end
