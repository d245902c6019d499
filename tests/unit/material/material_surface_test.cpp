// What a package finds out about a material before it asks for values.
#include "material/material_object.h"
#include "tests/support/error_interfaces.h"
#include "tests/unit/material/package_view.h"
#include "tests/unit/support/test_material.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>

namespace {

constexpr GUID unknownInterface = {0x678C0A9B, 0x0100, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}};

constexpr IID capeIid(std::uint32_t first)
{
    return {first, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}};
}

// In the order of inheritance.
constexpr IID iids[] = {
    capeIid(0x678C0B10),                                                            // ECapeRoot
    capeIid(0x678C0B12),                                                            // ECapeUnknown
    capeIid(0x678C0B11),                                                            // ECapeUser
    capeIid(0x678C0990),                                                            // ICapeIdentification
    capeIid(0x678C0A9D),                                                            // ICapeThermoCompounds
    capeIid(0x678C0AA0),                                                            // ICapeThermoEquilibriumRoutine
    capeIid(0x678C0A9B),                                                            // ICapeThermoMaterial
    capeIid(0x678C0A9E),                                                            // ICapeThermoPhases
    capeIid(0x678C0A9F),                                                            // ICapeThermoPropertyRoutine
    capeIid(0x678C0AA1),                                                            // ICapeThermoUniversalConstant
    {0xE2484BD9, 0x413A, 0x4855, {0x95, 0xBF, 0xCC, 0x72, 0xE1, 0xAF, 0xC4, 0xD2}}, // IMaterial
};
constexpr IID iidUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID iidDispatch = {0x20400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID iidMaterial = capeIid(0x678C0A9B);

// Looks for an interface and gives the reference back at once.
void *facet(IUnknown *object, REFIID iid)
{
    void *found = nullptr;
    EXPECT_EQ(object->QueryInterface(iid, &found), S_OK);
    if (found)
        static_cast<IUnknown *>(found)->Release();
    return found;
}

class MaterialSurface : public testing::Test {
protected:
    MaterialSurface()
    {
        OpenPackage &record = material.package();
        FillStringList(record.compoundFormulaList, {OLESTR("H2O"), OLESTR("D4")});
        FillStringList(record.compoundNameList, {OLESTR("water"), OLESTR("other")});
        record.compoundMolecularWeightList.Create(2, VT_R8);
        record.compoundMolecularWeightList.PutDouble(0, 18);
        record.compoundMolecularWeightList.PutDouble(1, 36);
        FillStringList(record.compoundCasNumberList, {OLESTR("7732-18-5"), OLESTR("0-0-0")});
        FillStringList(record.phaseStateOfAggregationList, {OLESTR("Vapor"), OLESTR("Liquid")});
        FillStringList(record.phaseKeyCompoundList, {OLESTR(""), OLESTR("C1")});
    }

    template <class Interface> ComPointer<Interface> query()
    {
        ComPointer<Interface> found;
        EXPECT_EQ(found.queryFrom(object), S_OK);
        return found;
    }

    TestMaterial material{{18, 36}};
    IUnknown *object = static_cast<ICapeThermoMaterial *>(&material.material());
};

TEST_F(MaterialSurface, AnswersItsElevenInterfacesEachWithAFacetOfItsOwn)
{
    std::set<void *> facets;
    for (const IID &iid : iids) {
        void *const found = facet(object, iid);
        ASSERT_NE(found, nullptr);
        facets.insert(found);
        // Every facet leads back to the one identity.
        EXPECT_EQ(facet(static_cast<IUnknown *>(found), iidUnknown), facet(object, iidMaterial));
    }
    EXPECT_EQ(facets.size(), 11u);
}

TEST_F(MaterialSurface, IsTheMaterialFacetForIUnknownAndIDispatch)
{
    void *const identity = facet(object, iidMaterial);
    EXPECT_EQ(facet(object, iidUnknown), identity);
    EXPECT_EQ(facet(object, iidDispatch), identity);
    EXPECT_NE(facet(object, capeIid(0x678C0A9E)), identity); // ICapeThermoPhases
    EXPECT_EQ(identity, static_cast<ICapeThermoMaterial *>(&material.material()));
}

TEST_F(MaterialSurface, RefusesAnUnknownInterfaceWithNull)
{
    void *found = &material;
    EXPECT_EQ(object->QueryInterface(unknownInterface, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(material->AddRef(), 2u);
    EXPECT_EQ(material->Release(), 1u);
}

TEST_F(MaterialSurface, RefusesANullOutPointerOfQueryInterface)
{
    EXPECT_EQ(object->QueryInterface(iidUnknown, nullptr), E_POINTER);
    EXPECT_EQ(object->QueryInterface(unknownInterface, nullptr), E_POINTER);
}

TEST(MaterialReferences, StartAtZeroAndTheFirstInterfaceIsTheFirst)
{
    const LONG locks = Module.lockCount;
    auto *material = new CComObject<CMaterialObject>;
    EXPECT_EQ(Module.lockCount, locks + 1);
    void *found = nullptr;
    ASSERT_EQ(material->QueryInterface(iidUnknown, &found), S_OK);
    EXPECT_EQ(material->AddRef(), 2u);
    EXPECT_EQ(material->Release(), 1u);
    EXPECT_EQ(static_cast<IUnknown *>(found)->Release(), 0u);
    EXPECT_EQ(Module.lockCount, locks);
}

TEST_F(MaterialSurface, CountsOneReferenceForEachInterfaceGiven)
{
    void *found = nullptr;
    for (const IID &iid : iids)
        ASSERT_EQ(object->QueryInterface(iid, &found), S_OK);
    EXPECT_EQ(material->AddRef(), 13u); // the test's own, eleven, this one
    for (int i = 0; i < 12; ++i)
        material->Release();
}

TEST_F(MaterialSurface, TellsItsNameTwice)
{
    const auto identification = query<ICapeIdentification>();
    Bstr name;
    EXPECT_EQ(identification->get_ComponentName(name.out()), S_OK);
    EXPECT_EQ(Ascii(name.get()), "Matlab Material Object");
    Bstr description;
    EXPECT_EQ(identification->get_ComponentDescription(description.out()), S_OK);
    EXPECT_EQ(Ascii(description.get()), "Matlab Material Object");
    EXPECT_EQ(identification->get_ComponentName(nullptr), E_POINTER);
    EXPECT_EQ(identification->get_ComponentDescription(nullptr), E_POINTER);
}

TEST_F(MaterialSurface, RefusesANewNameEvenItsOwn)
{
    const auto identification = query<ICapeIdentification>();
    for (LPCWSTR name : {OLESTR("Matlab Material Object"), OLESTR("Other"), static_cast<LPCWSTR>(nullptr)}) {
        EXPECT_EQ(static_cast<std::uint32_t>(identification->put_ComponentName(Bstr(name).get())), 0x80040501u);
        EXPECT_EQ(ErrorStateOf(object), "Access denied | Cannot change name of the material object | "
                                        "ICapeIdentification | put_ComponentName");
        EXPECT_EQ(static_cast<std::uint32_t>(identification->put_ComponentDescription(Bstr(name).get())), 0x80040501u);
        EXPECT_EQ(ErrorStateOf(object), "Access denied | Cannot change description of the material object | "
                                        "ICapeIdentification | put_ComponentDescription");
    }
    Bstr name;
    EXPECT_EQ(identification->get_ComponentName(name.out()), S_OK);
    EXPECT_EQ(Ascii(name.get()), "Matlab Material Object");
}

TEST_F(MaterialSurface, ErrorInterfacesAreEmptyBeforeTheFirstRefusal) { EXPECT_EQ(ErrorStateOf(object), " |  |  | "); }

TEST_F(MaterialSurface, ErrorInterfacesAnswerTheSameWhateverHappened)
{
    const auto user = query<ECapeUser>();
    Bstr addressBefore;
    EXPECT_EQ(user->get_moreInfo(addressBefore.out()), S_OK);
    const auto identification = query<ICapeIdentification>();
    EXPECT_EQ(identification->put_ComponentName(nullptr), ECapeUnknownHR);
    LONG code = 7;
    EXPECT_EQ(user->get_code(&code), S_OK);
    EXPECT_EQ(code, 0);
    Bstr operation;
    EXPECT_EQ(user->get_operation(operation.out()), S_OK);
    EXPECT_EQ(Ascii(operation.get()), "N/A");
    Bstr address;
    EXPECT_EQ(user->get_moreInfo(address.out()), S_OK);
    EXPECT_EQ(Ascii(address.get()), Ascii(addressBefore.get()));
    EXPECT_EQ(Ascii(address.get()).rfind("https://", 0), 0u);
}

TEST_F(MaterialSurface, KeepsTheLastRefusalThroughReadingAndSuccess)
{
    const PackageView view(object);
    const std::string refusal = "Not supported | Flow is not supported by this material object | "
                                "ICapeThermoMaterialObject | GetOverallProp";
    EXPECT_EQ(view.overall(OLESTR("flow"), nullptr).refusal, refusal);
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), nullptr, DoubleArgument({300})), "");
    EXPECT_EQ(view.errorState(), refusal);
    EXPECT_EQ(view.errorState(), refusal);
}

TEST_F(MaterialSurface, RefusesNullOutPointersOfTheErrorInterfaces)
{
    ExpectNullPointersRefused(*query<ECapeRoot>().get(), *query<ECapeUser>().get());
}

TEST_F(MaterialSurface, CountsCompoundsAndPhasesOfThePackageWhateverIsSet)
{
    TestMaterial other({18, 36, 44}, {OLESTR("Fluid")});
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ASSERT_EQ(compounds.queryFrom(static_cast<ICapeThermoMaterial *>(&other.material())), S_OK);
    ASSERT_EQ(phases.queryFrom(compounds.get()), S_OK);
    for (int round = 0; round < 2; ++round) {
        LONG count = -1;
        EXPECT_EQ(compounds->GetNumCompounds(&count), S_OK);
        EXPECT_EQ(count, 3);
        EXPECT_EQ(phases->GetNumPhases(&count), S_OK);
        EXPECT_EQ(count, 1);
        other.setPhaseFraction(0, 1, 0);
    }
    EXPECT_EQ(compounds->GetNumCompounds(nullptr), E_POINTER);
    EXPECT_EQ(phases->GetNumPhases(nullptr), E_POINTER);
}

TEST_F(MaterialSurface, GivesCopiesOfThePackagesCompoundLists)
{
    const auto compounds = query<ICapeThermoCompounds>();
    TextArgument ids({OLESTR("what stood there is cleared")});
    OwnedVariant formulae, names, boilingPoints, weights, casNumbers;
    EXPECT_EQ(compounds->GetCompoundList(ids.out(), formulae.out(), names.out(), boilingPoints.out(), weights.out(),
                                         casNumbers.out()),
              S_OK);
    EXPECT_EQ(TextsIn(ids), (std::vector<std::string>{"C0", "C1"}));
    EXPECT_EQ(TextsIn(formulae), (std::vector<std::string>{"H2O", "D4"}));
    EXPECT_EQ(TextsIn(names), (std::vector<std::string>{"water", "other"}));
    EXPECT_TRUE(boilingPoints.isEmpty()); // as this package gave it
    EXPECT_EQ(DoublesIn(weights), (std::vector<double>{18, 36}));
    EXPECT_EQ(TextsIn(casNumbers), (std::vector<std::string>{"7732-18-5", "0-0-0"}));
    EXPECT_NE(ids.value.parray, material.package().compoundIdList.value.parray);
}

TEST_F(MaterialSurface, TouchesNoCompoundListWhenOneOutPointerIsNull)
{
    const auto compounds = query<ICapeThermoCompounds>();
    for (std::size_t missing = 0; missing < 6; ++missing) {
        TextArgument lists[6] = {TextArgument({OLESTR("0")}), TextArgument({OLESTR("1")}), TextArgument({OLESTR("2")}),
                                 TextArgument({OLESTR("3")}), TextArgument({OLESTR("4")}), TextArgument({OLESTR("5")})};
        VARIANT *out[6];
        for (std::size_t i = 0; i < 6; ++i)
            out[i] = i == missing ? nullptr : lists[i].out();
        EXPECT_EQ(compounds->GetCompoundList(out[0], out[1], out[2], out[3], out[4], out[5]), E_POINTER);
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(TextsIn(lists[i]), std::vector<std::string>{std::to_string(i)});
    }
}

TEST_F(MaterialSurface, GivesCopiesOfThePackagesPhaseLists)
{
    const auto phases = query<ICapeThermoPhases>();
    DoubleArgument labels({1, 2, 3});
    OwnedVariant states, keyCompounds;
    EXPECT_EQ(phases->GetPhaseList(labels.out(), states.out(), keyCompounds.out()), S_OK);
    EXPECT_EQ(TextsIn(labels), (std::vector<std::string>{"Vapor", "Liquid"}));
    EXPECT_EQ(TextsIn(states), (std::vector<std::string>{"Vapor", "Liquid"}));
    EXPECT_EQ(TextsIn(keyCompounds), (std::vector<std::string>{"", "C1"}));
}

TEST_F(MaterialSurface, TouchesNoPhaseListWhenOneOutPointerIsNull)
{
    const auto phases = query<ICapeThermoPhases>();
    TextArgument first({OLESTR("first")});
    TextArgument second({OLESTR("second")});
    EXPECT_EQ(phases->GetPhaseList(nullptr, first.out(), second.out()), E_POINTER);
    EXPECT_EQ(phases->GetPhaseList(first.out(), nullptr, second.out()), E_POINTER);
    EXPECT_EQ(phases->GetPhaseList(first.out(), second.out(), nullptr), E_POINTER);
    EXPECT_EQ(TextsIn(first), std::vector<std::string>{"first"});
    EXPECT_EQ(TextsIn(second), std::vector<std::string>{"second"});
}

TEST_F(MaterialSurface, GivesItsOwnAddressWithoutAReference)
{
    const auto identity = query<IMaterial>();
    CMaterialObject *address = nullptr;
    EXPECT_EQ(identity->GetMaterialObject(&address), S_OK);
    EXPECT_EQ(address, &material.material());
    EXPECT_EQ(material->AddRef(), 3u); // the test's own, identity, this one
    EXPECT_EQ(material->Release(), 2u);
}

TEST_F(MaterialSurface, EveryInterfaceHasOneTypeInformation)
{
    for (const IID &iid : iids) {
        auto *const dispatch = static_cast<IDispatch *>(facet(object, iid));
        UINT count = 0;
        EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(dispatch->GetTypeInfoCount(nullptr), E_POINTER);
        auto *info = reinterpret_cast<ITypeInfo *>(&count);
        EXPECT_EQ(static_cast<std::uint32_t>(dispatch->GetTypeInfo(1, 0, &info)), 0x8002000Bu);
        EXPECT_EQ(info, nullptr);
    }
}

// With the CAPE-OPEN type library registered names are found, without one each call says so.
TEST_F(MaterialSurface, FindsNamesWhereTheTypeLibraryIsRegistered)
{
    ITypeLib *library = nullptr;
    const HRESULT loading = LoadRegTypeLib(LIBID_CAPEOPEN110, 1, 1, 0, &library);
    if (library)
        library->Release();
    auto *const dispatch = static_cast<IDispatch *>(facet(object, iidDispatch));
    const Bstr name(OLESTR("clearallprops"));
    LPOLESTR names[] = {name.get()};
    DISPID id = -7;
    const HRESULT hr = dispatch->GetIDsOfNames(GUID{}, names, 1, 0, &id);
    ITypeInfo *info = nullptr;
    const HRESULT giving = dispatch->GetTypeInfo(0, 0, &info);
    if (SUCCEEDED(loading)) {
        EXPECT_EQ(hr, S_OK);
        EXPECT_EQ(id, 1);
        ASSERT_EQ(giving, S_OK);
        info->Release();
    } else {
        EXPECT_EQ(hr, loading);
        EXPECT_EQ(id, -7);
        EXPECT_EQ(giving, loading);
        EXPECT_EQ(info, nullptr);
        DISPPARAMS arguments{};
        EXPECT_EQ(dispatch->Invoke(1, GUID{}, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr, nullptr), loading);
    }
}

} // namespace
