// A package of the manager with a material.
#pragma once

#include "reference/server/class_table.h"
#include "tests/reference/com/host.h"
#include "tests/reference/com/test_material.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct OpenedPackage {
    OpenedPackage(const Library &library, std::string_view name)
    {
        const auto manager = library.create<ICapeThermoPropertyPackageManager>(reference::managerClass);
        ComPointer<IDispatch> package;
        EXPECT_EQ(manager->GetPropertyPackage(Bstr(name).get(), package.out()), S_OK) << name;
        compounds = as<ICapeThermoCompounds>(package.get());
        context = as<ICapeThermoMaterialContext>(package.get());
        properties = as<ICapeThermoPropertyRoutine>(package.get());
        equilibrium = as<ICapeThermoEquilibriumRoutine>(package.get());
        phases = as<ICapeThermoPhases>(package.get());
    }

    void setMaterial(std::vector<std::string> ids, double temperature, double pressure, std::vector<double> composition)
    {
        material.compoundIds = std::move(ids);
        material.composition = std::move(composition);
        material.temperature = temperature;
        material.pressure = pressure;
        ASSERT_EQ(context->SetMaterial(static_cast<ICapeThermoMaterial *>(&material)), S_OK)
            << lastFailure(context.get()).description;
    }
    std::vector<double> valuesOf(const std::string &name, const std::string &phase)
    {
        EXPECT_EQ(properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(phase).get()), S_OK)
            << name << ": " << lastFailure(properties.get()).description;
        return material.written[phase + "/" + name].values;
    }
    // At the material's temperature and pressure.
    std::map<std::string, WrittenProperty> flash(std::vector<std::string> allowed = {"Vapor", "Liquid"})
    {
        material.written.clear();
        material.presentPhases = std::move(allowed);
        EXPECT_EQ(equilibrium->CalcEquilibrium(texts({"temperature", "", "Overall"}).get(),
                                               texts({"pressure", "", "Overall"}).get(), nullptr),
                  S_OK)
            << lastFailure(equilibrium.get()).description;
        return material.written;
    }
    std::vector<std::string> ids() const
    {
        Argument columns[6];
        EXPECT_EQ(compounds->GetCompoundList(columns[0].out(), columns[1].out(), columns[2].out(), columns[3].out(),
                                             columns[4].out(), columns[5].out()),
                  S_OK);
        return textsOf(columns[0].get());
    }

    TestMaterial material{{}};
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoMaterialContext> context;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibrium;
    ComPointer<ICapeThermoPhases> phases;
};
