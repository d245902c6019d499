// A package keeps its material, or one that it made of it, beyond the close of its record.
#include "tests/support/package_test.h"

using namespace support;

namespace {

constexpr HRESULT refused = CapeFailure(1);

class KeptMaterial : public PackageTest {
protected:
    // Closes the package after a calculation in which it made a further material.
    void close()
    {
        package.keepsMaterial = true;
        package.calcSinglePhase = [this](const SinglePhaseCall &asked) {
            EXPECT_EQ(asked.material.get()->CreateMaterial(made.out()), S_OK);
            return StoreSinglePhase({{"volume", "mole", {0.025}}})(asked);
        };
        mustReturn(1, singlePhase());
        mustReturn(0, {Scalar(4), handle});
        ASSERT_TRUE(package.keptMaterial);
        ASSERT_TRUE(made);
    }
    void TearDown() override
    {
        made.reset();
        package.keptMaterial.reset();
        PackageTest::TearDown();
    }

    ComPointer<IDispatch> made;
};

struct MaterialMethod {
    const char *interfaceName;
    const char *scope;
    std::function<HRESULT(IUnknown *)> call;
};

template <class Interface> std::function<HRESULT(IUnknown *)> with(std::function<HRESULT(Interface &)> call)
{
    return [call](IUnknown *material) {
        ComPointer<Interface> asked;
        EXPECT_EQ(asked.queryFrom(material), S_OK);
        return call(*asked.get());
    };
}

const OwnedBstr volume(Wide("volume"));
const OwnedBstr vapor(Wide("Vapor"));
const OwnedBstr mole(Wide("mole"));
const Variant number = NumberArray({1});
const Variant labels = TextArray({"Vapor", "Liquid"});

Variant results[6];
double numbers[2];

const MaterialMethod methods[] = {
    {"ICapeThermoMaterial", "ClearAllProps", with<ICapeThermoMaterial>([](auto &m) { return m.ClearAllProps(); })},
    {"ICapeThermoMaterial", "CreateMaterial", with<ICapeThermoMaterial>([](auto &m) {
         ComPointer<IDispatch> another;
         return m.CreateMaterial(another.out());
     })},
    {"ICapeThermoMaterial", "CopyFromMaterial", with<ICapeThermoMaterial>([](auto &m) {
         IDispatch *self = &m;
         return m.CopyFromMaterial(&self);
     })},
    {"ICapeThermoMaterialObject", "GetOverallProp",
     with<ICapeThermoMaterial>([](auto &m) { return m.GetOverallProp(volume, mole, &results[0].value); })},
    {"ICapeThermoMaterialObject", "GetOverallTPFraction", with<ICapeThermoMaterial>([](auto &m) {
         return m.GetOverallTPFraction(&numbers[0], &numbers[1], &results[0].value);
     })},
    {"ICapeThermoMaterial", "GetPresentPhases",
     with<ICapeThermoMaterial>([](auto &m) { return m.GetPresentPhases(&results[0].value, &results[1].value); })},
    {"ICapeThermoMaterialObject", "GetSingleProp",
     with<ICapeThermoMaterial>([](auto &m) { return m.GetSinglePhaseProp(volume, vapor, mole, &results[0].value); })},
    {"ICapeThermoMaterialObject", "GetTPFraction", with<ICapeThermoMaterial>([](auto &m) {
         return m.GetTPFraction(vapor, &numbers[0], &numbers[1], &results[0].value);
     })},
    {"ICapeThermoMaterialObject", "GetTwoPhaseProp", with<ICapeThermoMaterial>([](auto &m) {
         return m.GetTwoPhaseProp(volume, labels.value, nullptr, &results[0].value);
     })},
    {"ICapeThermoMaterialObject", "SetOverallProp",
     with<ICapeThermoMaterial>([](auto &m) { return m.SetOverallProp(volume, mole, number.value); })},
    {"ICapeThermoMaterial", "SetPresentPhases",
     with<ICapeThermoMaterial>([](auto &m) { return m.SetPresentPhases(labels.value, number.value); })},
    {"ICapeThermoMaterialObject", "SetSinglePhaseProp",
     with<ICapeThermoMaterial>([](auto &m) { return m.SetSinglePhaseProp(volume, vapor, mole, number.value); })},
    {"ICapeThermoMaterialObject", "SetTwoPhaseProp",
     with<ICapeThermoMaterial>([](auto &m) { return m.SetTwoPhaseProp(volume, labels.value, nullptr, number.value); })},
    {"ICapeThermoCompounds", "GetCompoundList", with<ICapeThermoCompounds>([](auto &m) {
         return m.GetCompoundList(&results[0].value, &results[1].value, &results[2].value, &results[3].value,
                                  &results[4].value, &results[5].value);
     })},
    {"ICapeThermoCompounds", "GetNumCompounds", with<ICapeThermoCompounds>([](auto &m) {
         LONG count = 0;
         return m.GetNumCompounds(&count);
     })},
    {"ICapeThermoPhases", "GetNumPhases", with<ICapeThermoPhases>([](auto &m) {
         LONG count = 0;
         return m.GetNumPhases(&count);
     })},
    {"ICapeThermoPhases", "GetPhaseList", with<ICapeThermoPhases>([](auto &m) {
         return m.GetPhaseList(&results[0].value, &results[1].value, &results[2].value);
     })},
};

} // namespace

TEST_F(KeptMaterial, RefusesEveryMethodThatNeedsTheRecord)
{
    close();
    for (IDispatch *material : {package.keptMaterial.get(), made.get()}) {
        for (const MaterialMethod &method : methods) {
            EXPECT_EQ(method.call(material), refused) << method.scope;
            EXPECT_EQ(LastRefusal(material),
                      (RefusedCall{Wide("Invalid material"),
                                   Wide("The property package of this material object has been closed"),
                                   Wide(method.interfaceName), Wide(method.scope)}));
        }
    }
    for (const Variant &result : results)
        EXPECT_EQ(result.value.vt, VT_EMPTY);
}

TEST_F(KeptMaterial, IsNotCopiedByTheMaterialOfAnotherRecord)
{
    close();
    handle = open("Alone");
    package.keepsMaterial = false;
    RefusedCall told;
    package.calcSinglePhase = [&](const SinglePhaseCall &asked) {
        IDispatch *source = made.get();
        EXPECT_EQ(asked.material.get()->CopyFromMaterial(&source), refused);
        told = asked.material.lastRefusal();
        return StoreSinglePhase({{"volume", "mole", {0.025}}})(asked);
    };
    mustReturn(1, singlePhase());
    EXPECT_EQ(told.description, Wide("Source material is not of same type"));
}

// The package may be told of its end by a call that works on its material still.
TEST_F(KeptMaterial, WorksUntilThePackageIsGone)
{
    package.keepsMaterial = true;
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}});
    mustReturn(1, singlePhase());
    HRESULT atTerminate = E_FAIL;
    package.onCall = [&](const std::string &method) {
        ComPointer<ICapeThermoPhases> phases;
        LONG count = 0;
        if (method == "Terminate" && SUCCEEDED(phases.queryFrom(package.keptMaterial.get())))
            atTerminate = phases->GetNumPhases(&count);
    };
    mustReturn(0, {Scalar(4), handle});
    package.onCall = nullptr;
    EXPECT_EQ(atTerminate, S_OK);
}
