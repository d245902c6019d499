// What a package lists can be calculated, and what it does not list can not: over all packages, properties, phases and
// compounds. A value that is not there is refused for a reason that is true.
#include "reference/engine/quantities/phase_quantity.h"
#include "tests/reference/com/opened_package.h"

#include <algorithm>
#include <cmath>
#include <set>

using namespace reference;

namespace {

const char *const packageNames[] = {"Natural gas",
                                    "Air",
                                    "Refinery gas",
                                    "Aromatics",
                                    "Refrigerants",
                                    "Water and light alcohols",
                                    "Wet gas and hydrocarbons",
                                    "All compounds (Peng-Robinson)",
                                    "All compounds (Soave-Redlich-Kwong)"};

class ListedProperties : public testing::TestWithParam<const char *> {
protected:
    Library library;
    OpenedPackage package{library, GetParam()};

    std::vector<std::string> listed(HRESULT (STDMETHODCALLTYPE ICapeThermoPropertyRoutine::*list)(VARIANT *))
    {
        Argument names;
        EXPECT_EQ((package.properties.get()->*list)(names.out()), S_OK);
        return textsOf(names.get());
    }
    // Every name that any package has.
    static std::vector<std::string> allNames()
    {
        std::vector<std::string> names;
        for (const QuantityShape &shape : phaseQuantities())
            for (const char *suffix : {"", ".Dtemperature", ".Dpressure", ".Dmoles", ".DmolFraction"})
                names.push_back(std::string(shape.name) + suffix);
        return names;
    }
    // At a temperature where every compound has a vapor and a liquid.
    void setPure(const std::string &id, double criticalTemperature)
    {
        package.setMaterial({id}, std::max(20.0, 0.7 * criticalTemperature), 1e5, {1.0});
    }
    std::vector<double> criticalTemperatures()
    {
        Argument values;
        EXPECT_EQ(package.compounds->GetCompoundConstant(texts({"criticalTemperature"}).get(), {}, values.out()), S_OK);
        std::vector<double> temperatures;
        const auto *elements = static_cast<const VARIANT *>(values.get().parray->pvData);
        for (std::size_t i = 0; i < package.ids().size(); ++i)
            temperatures.push_back(elements[i].dblVal);
        return temperatures;
    }
    // Why there is no value; what the tables leave empty, and what the guide says of the liquid of NRTL.
    static std::string expectedReason(const std::string &name, const std::string &id, const std::string &phase)
    {
        const std::string base = name.substr(0, name.find('.'));
        const std::set<std::string> noFormation = {"R-1234yf", "R-1234ze(E)"};
        const std::set<std::string> noGibbsEnergy = {"R-134a", "R-143a"};
        if ((base == "enthalpyF" || base == "entropyF") && noFormation.contains(id))
            return "the enthalpy of formation of " + id + " is not known";
        if (base == "entropyF" && noGibbsEnergy.contains(id))
            return "the Gibbs energy of formation of " + id + " is not known";
        if ((base == "heatCapacityCv" || base == "speedOfSound") && phase != "Vapor" &&
            std::string_view(GetParam()) == "Water and light alcohols")
            return "a liquid of this model does not yield to pressure";
        return {};
    }
};

} // namespace

TEST_P(ListedProperties, AreThereForEveryCompoundButForAReason)
{
    const std::vector<std::string> names = listed(&ICapeThermoPropertyRoutine::GetSinglePhasePropList);
    const std::vector<std::string> ids = package.ids();
    const std::vector<double> critical = criticalTemperatures();
    std::set<std::string> given;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        setPure(ids[i], critical[i]);
        for (const std::string phase : {"Vapor", "Liquid", "Liquid2"})
            for (const std::string &name : names) {
                package.material.written.clear();
                const HRESULT result = package.properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(phase).get());
                if (const std::string reason = expectedReason(name, ids[i], phase); !reason.empty()) {
                    EXPECT_EQ(result, errors::propertyNotAvailable.result) << name << " of " << ids[i];
                    EXPECT_EQ(lastFailure(package.properties.get()).description,
                              "There is no \"" + name + "\" here: " + reason);
                    continue;
                }
                ASSERT_EQ(result, S_OK) << name << " of " << ids[i] << " as " << phase << ": "
                                        << lastFailure(package.properties.get()).description;
                for (const double value : package.material.written.at(phase + "/" + name).values)
                    EXPECT_TRUE(std::isfinite(value)) << name << " of " << ids[i] << " as " << phase;
                given.insert(name);
            }
    }
    EXPECT_EQ(given, std::set<std::string>(names.begin(), names.end()));
}

TEST_P(ListedProperties, AreAllThatCanBeCalculated)
{
    const std::vector<std::string> names = listed(&ICapeThermoPropertyRoutine::GetSinglePhasePropList);
    const std::vector<std::string> ids = package.ids();
    setPure(ids[0], criticalTemperatures()[0]);
    for (const std::string &name : allNames()) {
        const bool isListed = std::ranges::find(names, name) != names.end();
        const HRESULT result =
            package.properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(std::string_view("Vapor")).get());
        EXPECT_EQ(result == S_OK, isListed) << name;
    }
}

TEST_P(ListedProperties, OfTwoPhasesAreThereForEveryCompound)
{
    const std::vector<std::string> ids = package.ids();
    const std::vector<double> critical = criticalTemperatures();
    for (std::size_t i = 0; i < ids.size(); ++i) {
        setPure(ids[i], critical[i]);
        for (const std::string &name : listed(&ICapeThermoPropertyRoutine::GetTwoPhasePropList))
            EXPECT_EQ(package.properties->CalcTwoPhaseProp(texts({name}).get(), texts({"Vapor", "Liquid"}).get()), S_OK)
                << name << " of " << ids[i] << ": " << lastFailure(package.properties.get()).description;
    }
}

// Of all compounds at once, each property has as many values as at a composition of a few of them.
TEST_P(ListedProperties, LeaveOutWhatIsNotKnownOfAbsentCompounds)
{
    const std::vector<std::string> ids = package.ids();
    std::vector<double> composition(ids.size(), 0.0);
    composition[0] = composition[1] = 0.5; // whose formation is known, but for refrigerants
    if (std::string_view(GetParam()) == "Refrigerants")
        composition[1] = 0.0;
    package.setMaterial(ids, 350.0, 1e5, composition);
    for (const std::string base : {"enthalpyF", "entropyF"}) {
        EXPECT_TRUE(std::isfinite(package.valuesOf(base, "Vapor").at(0)));
        for (const char *suffix : {".Dmoles", ".DmolFraction"}) {
            const std::vector<double> values = package.valuesOf(base + suffix, "Vapor");
            ASSERT_EQ(values.size(), ids.size());
            for (std::size_t i = 0; i < ids.size(); ++i)
                EXPECT_EQ(std::isnan(values[i]), !expectedReason(base, ids[i], "Vapor").empty()) << ids[i];
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Packages, ListedProperties, testing::ValuesIn(packageNames),
                         [](const auto &info) { return "Package" + std::to_string(info.index); });
