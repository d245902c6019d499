// One way for a package to fail, and what the standard says of it.
#pragma once

#include "tests/reference/com/package_fixture.h"

#include <cfloat>
#include <functional>
#include <optional>
#include <ostream>
#include <utility>

// The limits that a value is outside of.
struct ExpectedBounds {
    double lower;
    double upper;
    double value;
    const char *type;
};

// A package with a material, ready to calculate, and a manager.
class ErrorHost : public PackageFixture {
public:
    using PackageFixture::compounds;
    using PackageFixture::context;
    using PackageFixture::equilibrium;
    using PackageFixture::material;
    using PackageFixture::phases;
    using PackageFixture::properties;

    void SetUp() override
    {
        PackageFixture::SetUp();
        manager = library.create<ICapeThermoPropertyPackageManager>(reference::managerClass);
        ASSERT_TRUE(manager);
        setMaterial();
        failed = compounds.get();
        material.onCall = [this] {
            if (const auto task = std::exchange(atNextCall, nullptr))
                task();
        };
    }
    void TearDown() override
    {
        manager.reset();
        PackageFixture::TearDown();
    }

    // Another of the manager's packages in place of the first, with a material of these compounds.
    void open(std::string_view package, const std::vector<std::string> &ids)
    {
        ComPointer<IDispatch> opened;
        ASSERT_EQ(manager->GetPropertyPackage(Bstr(package).get(), opened.out()), S_OK);
        askFor(opened.get());
        failed = compounds.get();
        material.composition.assign(ids.size(), 1.0 / static_cast<double>(ids.size()));
        ASSERT_EQ(setMaterialOf(ids), S_OK);
    }
    HRESULT setMaterialOf(const std::vector<std::string> &ids)
    {
        material.compoundIds = ids;
        return context->SetMaterial(static_cast<ICapeThermoMaterial *>(&material));
    }
    HRESULT constant(const std::vector<std::string> &names, const std::vector<std::string> &ids)
    {
        Argument values;
        return compounds->GetCompoundConstant(texts(names).get(), texts(ids).get(), values.out());
    }
    HRESULT byTemperature(const char *name, double temperature, const char *id = "methane")
    {
        Argument values;
        return compounds->GetTDependentProperty(texts({name}).get(), temperature, texts({id}).get(), values.out());
    }
    HRESULT byPressure(const char *name, double pressure, const char *id = "methane")
    {
        Argument values;
        return compounds->GetPDependentProperty(texts({name}).get(), pressure, texts({id}).get(), values.out());
    }
    HRESULT phaseInfo(std::string_view phase, std::string_view attribute)
    {
        Argument value;
        return phases->GetPhaseInfo(Bstr(phase).get(), Bstr(attribute).get(), value.out());
    }
    HRESULT lnPhi(std::string_view phase, double temperature, double pressure, const std::vector<double> &amounts)
    {
        Argument values;
        return properties->CalcAndGetLnPhi(Bstr(phase).get(), temperature, pressure, numbers(amounts).get(), 1,
                                           values.out(), nullptr, nullptr, nullptr);
    }
    HRESULT ofPhase(const std::vector<std::string> &names, std::string_view phase = "Vapor")
    {
        return properties->CalcSinglePhaseProp(texts(names).get(), Bstr(phase).get());
    }
    HRESULT ofPhases(const std::vector<std::string> &names, const std::vector<std::string> &labels)
    {
        return properties->CalcTwoPhaseProp(texts(names).get(), texts(labels).get());
    }
    HRESULT flash(const std::vector<std::string> &first = {"temperature", "", "Overall"},
                  const std::vector<std::string> &second = {"pressure", "", "Overall"}, std::string_view type = {})
    {
        return equilibrium->CalcEquilibrium(texts(first).get(), texts(second).get(), Bstr(type).get());
    }
    // What `fail` gives when it is called in the midst of a calculation of this package.
    HRESULT meanwhile(const std::function<HRESULT()> &fail)
    {
        std::optional<HRESULT> result;
        atNextCall = [&] { result = fail(); };
        EXPECT_EQ(flash(), S_OK);
        EXPECT_TRUE(result);
        return result.value_or(S_OK);
    }
    ICapeUtilities *utilitiesOf(IUnknown *object)
    {
        failed = object;
        return as<ICapeUtilities>(object).get(); // kept by the object, which stays
    }

    ComPointer<ICapeThermoPropertyPackageManager> manager;
    IUnknown *failed = nullptr;       // the object that has to tell
    std::function<void()> atNextCall; // of the material
};

struct ErrorCase {
    const char *title;
    const char *interfaceName;
    const char *operation;
    const char *error;
    int position; // of the argument; 0 for errors that are of none
    std::function<HRESULT(ErrorHost &)> fail;
    std::optional<ExpectedBounds> bounds = {};
    const char *requestedOperation = "";

    friend void PrintTo(const ErrorCase &error, std::ostream *stream) { *stream << error.title; }
};

// All of them, by interface and method.
std::vector<ErrorCase> errorCases();
