// A stand-alone package with its interfaces, and a material of three of its compounds in another order.
#pragma once

#include "reference/server/class_table.h"
#include "tests/reference/com/package_interfaces.h"
#include "tests/reference/com/test_material.h"

#include <gtest/gtest.h>

class PackageFixture : public testing::Test, protected PackageInterfaces {
protected:
    void SetUp() override
    {
        const auto package = library.create<IUnknown>(reference::standAloneClass);
        ASSERT_TRUE(package);
        askFor(package.get());
        ASSERT_TRUE(compounds && phases && context && properties && equilibrium);
        material.temperature = 250.0;
        material.pressure = 3e6;
        material.composition = {0.25, 0.625, 0.125};
    }

    // Every reference on the package, the material and the library must be gone at the end.
    void TearDown() override
    {
        compounds.reset();
        phases.reset();
        properties.reset();
        equilibrium.reset();
        if (context) {
            EXPECT_EQ(context.detach()->Release(), 0u);
        }
        EXPECT_EQ(material.references, 1u);
        EXPECT_EQ(library.canUnloadNow(), S_OK);
    }

    void setMaterial() { ASSERT_EQ(context->SetMaterial(static_cast<ICapeThermoMaterial *>(&material)), S_OK); }

    // What the package says after a call that must have failed.
    void expectFailure(HRESULT result, const reference::ErrorKind &kind, const char *interfaceName,
                       const char *operation, const char *description)
    {
        const LastFailure failure = lastFailure(compounds.get());
        EXPECT_EQ(result, kind.result);
        EXPECT_EQ(WideString(failure.name.begin(), failure.name.end()), kind.name);
        EXPECT_EQ(failure.description, description);
        EXPECT_EQ(failure.interfaceName, interfaceName);
        EXPECT_EQ(failure.operation, operation);
    }

    Library library;
    TestMaterial material{{"propane", "methane", "nitrogen"}};
};
