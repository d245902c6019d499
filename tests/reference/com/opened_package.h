// A package of the manager with a material.
#pragma once

#include "reference/server/class_table.h"
#include "tests/reference/com/package_interfaces.h"
#include "tests/reference/com/test_material.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct OpenedPackage : PackageInterfaces {
    OpenedPackage(const Library &library, std::string_view name)
    {
        const auto manager = library.create<ICapeThermoPropertyPackageManager>(reference::managerClass);
        ComPointer<IDispatch> package;
        EXPECT_EQ(manager->GetPropertyPackage(Bstr(name).get(), package.out()), S_OK) << name;
        askFor(package.get());
    }
    OpenedPackage(const OpenedPackage &) = delete;
    OpenedPackage &operator=(const OpenedPackage &) = delete;
    // The material goes before the package does, which keeps what it is given.
    ~OpenedPackage()
    {
        if (context) {
            EXPECT_EQ(context->UnsetMaterial(), S_OK);
        }
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

    // That what a flash has written are these phases, whose fugacities agree; with what there is of each compound in
    // all.
    void expectEquilibrium(const std::map<std::string, WrittenProperty> &flashed,
                           const std::vector<std::string> &labels)
    {
        std::vector<double> balance(material.compoundIds.size(), 0.0);
        std::vector<double> first;
        for (const std::string &label : labels) {
            ASSERT_TRUE(flashed.contains(label + "/fraction")) << label;
            const std::vector<double> &x = flashed.at(label + "/fraction").values;
            material.ownCompositions[label] = x;
            const std::vector<double> fugacity = valuesOf("fugacity", label);
            if (first.empty())
                first = fugacity;
            for (std::size_t i = 0; i < balance.size(); ++i) {
                balance[i] += flashed.at(label + "/phaseFraction").values[0] * x[i];
                EXPECT_NEAR(fugacity[i], first[i], 1e-9 * first[i]) << i << " in " << label;
            }
        }
        for (std::size_t i = 0; i < balance.size(); ++i)
            EXPECT_NEAR(balance[i], material.composition[i], 1e-12) << i;
    }

    TestMaterial material{{}};
};
