// What tests have in common that reach 32-bit packages through the real relay, from mexFunction on.
#pragma once

#include "tests/relay/installation.h"
#include "tests/support/mex_test.h"

namespace support {

inline const std::string relayTail =
    " is a 32-bit COM object and is created out-of-process; running the 32-bit version of Matlab might be more "
    "efficient";

inline std::vector<std::string> RelayWarning(const std::string &name) { return {"CAPE-OPEN: " + name + relayTail}; }

inline constexpr const char *standAloneName = "Verdanth Natural Gas (stand-alone)";
inline const std::string standAloneClass = "{8337DA1D-2C46-4715-9C96-CFCE8AE51506}";
inline constexpr const char *managerName = "Verdanth Reference Packages";
inline constexpr const char *packageName = "Natural gas";
inline const std::vector<WideString> packagesOfManager =
    Names({packageName, "Air", "Refinery gas", "Aromatics", "Refrigerants", "Water and light alcohols",
           "Wet gas and hydrocarbons", "All compounds (Peng-Robinson)", "All compounds (Soave-Redlich-Kwong)"});

// The relay goes when the library is cleared.
class ThroughRelay : public MexTest {
protected:
    void TearDown() override
    {
        MexTest::TearDown();
        EXPECT_TRUE(installation::relaysEnd()) << "a relay stays";
    }

    // A class of odd_components.dll in the 32-bit view, a stand-alone package by its category.
    RegisteredClass oddClass(int kind) const
    {
        return PackageClass("", "{7E57B200-3B1C-4D0A-9E55-216B0C5FA80" + std::to_string(kind) + "}");
    }
    void addOdd(RegisteredClass entry)
    {
        entry.view = RegistryView::wow64;
        world.registry().add(entry);
        const WideString path = Wide("WOW6432Node\\CLSID\\") + entry.classIdText + Wide("\\InprocServer32");
        const WideString library = installation::file32(L"odd_components.dll");
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE *>(library.c_str()),
                       static_cast<DWORD>((library.size() + 1) * sizeof(WCHAR)));
        RegSetValueExW(key, L"ThreadingModel", 0, REG_SZ, reinterpret_cast<const BYTE *>(L"Apartment"),
                       10 * sizeof(WCHAR));
        RegCloseKey(key);
    }

    CallResult openAlone(AnyText name) { return mustReturn(1, {Scalar(3), Text(name), Text("")}); }

    // The natural gas of the reference package, in the order of its compounds.
    static std::vector<double> gas() { return {0.80, 0.08, 0.05, 0.02, 0, 0.01, 0, 0, 0.02, 0.02, 0}; }

    // The batch flash of a package over rows of conditions: the vapor fraction of each.
    CallResult vaporFractions(const Array &package, const std::vector<double> &temperatures,
                              const std::vector<double> &pressures)
    {
        std::vector<std::vector<double>> compositions(temperatures.size(), gas());
        return mustReturn(1,
                          {Scalar(25), package, Matrix(compositions), Text("Temperature"), Column(temperatures),
                           Text("Pressure"), Column(pressures), Text("Unspecified"), Scalar(1), Text("vaporFraction")});
    }
};

} // namespace support
