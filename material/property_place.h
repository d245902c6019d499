// Where a method of the material reads or writes property values: the Overall phase or one of the
// phases, with the names that its refusals carry. Internal to the material.
#pragma once

#include "material/material_object.h"
#include "material/parse_basis.h"

#include <cstdint>

// Stands for the Overall phase, which has no index.
inline constexpr std::int32_t OverallPhase = -1;

// The interface that the refusals of these methods carry.
inline constexpr LPCWSTR propertyInterface = OLESTR("ICapeThermoMaterialObject");

struct PropertyPlace {
    CMaterialObject &material;
    LPCWSTR scope; // the method, as its refusals name it
    std::int32_t phase = OverallPhase;

    bool isOverall() const { return phase == OverallPhase; }
    double *composition() const
    {
        return isOverall() ? material.overallComposition.get() : material.phaseComposition[phase].get();
    }
    std::int32_t &compositionBasis() const
    {
        return isOverall() ? material.overallCompositionBasis : material.phaseCompositionBasis[phase];
    }
    PropertyMap &properties() const { return isOverall() ? material.overallProps : material.phaseProps[phase]; }

    // Each gives the result of a refusal.
    HRESULT refuse(LPCWSTR name, LPCWSTR description) const;
    HRESULT refuse(LPCWSTR name, const WideString &description) const { return refuse(name, description.c_str()); }

    // Parses the basis argument: S_OK or the refusal.
    HRESULT takeBasis(LPCWSTR basisText, BasisCode &basis) const;

    // Makes the phase of a label the place: S_OK or the refusal.
    HRESULT takePhase(LPCWSTR label);
};

// The two phases of a two-phase value.
struct PhasePair {
    std::int32_t first;
    LPCWSTR key; // of the value in the map of the first phase; lies in the material
};

// The labels of a phase pair, where they lie.
struct PhaseLabels {
    LPCWSTR first;
    LPCWSTR second;
};

// Takes the two labels of a two-phase method: S_OK or the refusal.
HRESULT TakePhaseLabels(const PropertyPlace &place, const VARIANT &phaseLabels, PhaseLabels &labels);

// Takes the phases of the labels and the property: S_OK or the refusal. The phases need be neither
// present nor different.
HRESULT TakePhasePair(const PropertyPlace &place, const PhaseLabels &labels, LPCWSTR property, PhasePair &pair);

// "Invalid phase: " and the label.
WideString InvalidPhaseText(LPCWSTR label);
