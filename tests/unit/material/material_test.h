// What the tests of the material have in common.
#pragma once

#include "tests/unit/material/package_view.h"
#include "tests/unit/support/sentinels.h"
#include "tests/unit/support/test_material.h"

#include <gtest/gtest.h>

#include <string>

inline const LPCWSTR none = nullptr; // no basis
inline const LPCWSTR mole = OLESTR("mole");
inline const LPCWSTR mass = OLESTR("mass");
inline const LPCWSTR vapor = OLESTR("Vapor");
inline const LPCWSTR liquid = OLESTR("Liquid");

// The error state of a material after a method refused something.
inline std::string refusedBy(const std::string &method, const std::string &name, const std::string &description)
{
    return name + " | " + description + " | ICapeThermoMaterialObject | " + method;
}

// A material of two compounds, 18 and 36 g/mol, and the phases "Vapor" and "Liquid". An equimolar
// mixture has a mean molar mass of 27 g/mol and mass fractions 1/3 and 2/3.
class MaterialTest : public testing::Test {
protected:
    TestMaterial material{{18, 36}};
    PackageView view{static_cast<ICapeThermoMaterial *>(&material.material())};
};

// The same with values to write: of the shapes of a scalar and of a vector, and none.
class SetterTest : public MaterialTest {
protected:
    DoubleArgument one{1};
    DoubleArgument two{0.25, 0.75};
    OwnedVariant empty;
};
