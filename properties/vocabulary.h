// The closed list of property names that the system understands: five tables, one per kind.
#pragma once

#include "properties/property_keys.h"

#include <cstdint>
#include <unordered_map>

enum PropertyKind : std::int32_t {
    CompoundConstant = 0,
    TemperatureDependent = 1,
    PressureDependent = 2,
    SinglePhase = 3,
    TwoPhase = 4,
};

// One row; lives from the building of the tables to their clearing, all texts are static.
struct PropertyInfo {
    PropertyKind kind;
    LPCWSTR massUnit;        // null: dimensionless
    LPCWSTR moleUnit;        // null: dimensionless
    LPCWSTR name;            // in its proper case
    std::int32_t basisPower; // 1: mass value = mole value times mean molar mass in kg/mol; -1: divided; 0: no basis
    std::int32_t dimensions; // 0 scalar, 1 one value per compound, 2 one per pair of compounds
    std::int32_t mixable;    // kind 3: an overall value can be formed from the phases' values
    std::int32_t specific;   // kind 3: a value per mole or mass of an extensive quantity
};

// From the lower-cased name of a row to the row.
using PropertyTable = std::unordered_map<WSTRMapKeyString, const PropertyInfo *, WSTRMapKeyHash, WSTRMapKeyEqual>;

extern PropertyTable constantProperties;
extern PropertyTable tDependentProperties;
extern PropertyTable pDependentProperties;
extern PropertyTable singlePhaseProperties;
extern PropertyTable twoPhaseProperties;

// Fills the tables; does nothing when they are built.
void BuildPropertyTables();

// Marks the tables unbuilt and empties them in the order constants, temperature-dependent,
// pressure-dependent, single-phase, two-phase. Does nothing when they are not built.
void ClearPropertyTables();
