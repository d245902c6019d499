// One input's play: a client calls one reference package in any order, and its materials call the package back.
#pragma once

#include "cape/com/com_pointer.h"
#include "fuzz/reference_package/material.h"

namespace fuzz {

class Session {
public:
    explicit Session(FuzzedDataProvider &data);
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session(); // package and materials have been given back, or the process ends

    void run();

private:
    void callBack();
    void callAny();
    HRESULT call();
    HRESULT setMaterial();

    // --- calculations.cpp ---

    HRESULT calculatePhase();
    HRESULT calculateTwoPhases();
    HRESULT calculateEquilibrium();
    HRESULT checkSpecifications();
    HRESULT fugacityCoefficients();

    // --- inquiries.cpp ---

    HRESULT ofCompounds();
    HRESULT lists();
    HRESULT ofPhases();
    HRESULT common();

    FuzzedDataProvider &input;
    Material materials[2];
    ComPointer<ICapeThermoMaterialContext> context;
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibrium;
    ComPointer<ICapeThermoUniversalConstant> constants;
    ComPointer<ICapeUtilities> utilities;
    ComPointer<ICapeIdentification> identification;
    int depth = 0;
    int calls = 0;
};

} // namespace fuzz
