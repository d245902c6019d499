// The table of open packages: handles, closing, the order in which a package is given up.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <algorithm>

using namespace support;

namespace {

class OpenPackages : public MexTest {
protected:
    std::vector<std::int32_t> handles()
    {
        std::vector<std::int32_t> all = mustReturn(1, {Scalar(5)})[0].int32s();
        std::sort(all.begin(), all.end());
        return all;
    }
    void close(const Array &handle) { mustReturn(0, {Scalar(4), handle}); }

    // A single-phase property and a flash, so that all interfaces and the material are fetched.
    void calculate(PackageScript &package, const Array &handle)
    {
        package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}});
        package.calcEquilibrium = StoreEquilibrium({{"Vapor", 1, {0.5, 0.5}}}, 340, 101325);
        mustReturn(1, {Scalar(22), Scalar(1), handle, Text("volume"), Scalar(350), Scalar(101325), Row({0.5, 0.5}),
                       Text("Vapor")});
        mustReturn(5, {Scalar(24), handle, Row({0.5, 0.5}), Text("temperature"), Scalar(340), Text("pressure"),
                       Scalar(101325), Text("Unspecified")});
    }
};

// Notes what is held of the material at the moment when its last reference goes.
class MaterialKeeper : public PackageScript {
public:
    int materialReferencesAtRelease = -1;

protected:
    void objectReleased() override
    {
        materialReferencesAtRelease = ReferencesOn(keptMaterial.get());
        PackageScript::objectReleased();
    }
};

} // namespace

TEST_F(OpenPackages, WithNoneOpenTheHandlesAreAnEmptyInt32Array)
{
    const Array none = mustReturn(1, {Scalar(5)})[0];
    EXPECT_EQ(none.classId(), mxINT32_CLASS);
    EXPECT_EQ(none.dimensions(), (std::vector<std::size_t>{0, 0}));
}

TEST_F(OpenPackages, AreListedOnceEachAsAColumn)
{
    std::vector<std::int32_t> opened;
    for (const char *name : {"one", "two", "three"}) {
        world.addPackage(name);
    }
    for (const char *name : {"one", "two", "three"})
        opened.push_back(open(name).int32());
    std::sort(opened.begin(), opened.end());
    EXPECT_EQ(handles(), opened);
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].dimensions(), (std::vector<std::size_t>{3, 1}));
}

TEST_F(OpenPackages, HaveHandlesOfTheirOwn)
{
    ManagerScript &manager = world.addManager("Manager");
    std::vector<std::int32_t> opened;
    for (int i = 0; i < 200; ++i) {
        const std::string name = "package " + std::to_string(i);
        world.addPackageOf(manager, name);
        opened.push_back(open("Manager", name).int32());
        EXPECT_GE(opened.back(), 0);
        EXPECT_LE(opened.back(), 0x7FFF);
    }
    std::sort(opened.begin(), opened.end());
    EXPECT_EQ(std::adjacent_find(opened.begin(), opened.end()), opened.end());
    EXPECT_EQ(handles(), opened);
}

TEST_F(OpenPackages, OfTwoTheOneThatIsClosedGoes)
{
    PackageScript &first = world.addPackage("first");
    PackageScript &second = world.addPackage("second");
    const Array firstHandle = open("first");
    const Array secondHandle = open("second");
    close(firstHandle);
    EXPECT_EQ(handles(), std::vector<std::int32_t>{secondHandle.int32()});
    EXPECT_EQ(first.references(), 0);
    EXPECT_EQ(second.calls("Terminate"), 0);
    EXPECT_EQ(mustReturn(1, {Scalar(6), secondHandle})[0].text(), Wide("second"));
}

TEST_F(OpenPackages, AreClosedOnce)
{
    PackageScript &package = world.addPackage("Alone");
    const Array handle = open("Alone");
    close(handle);
    EXPECT_EQ(refusal(0, {Scalar(4), handle}), "Invalid property package handle");
    EXPECT_EQ(package.calls("Terminate"), 1);
}

TEST_F(OpenPackages, GiveUpTheThermodynamicInterfacesBeforeTerminateAndKeepTheMaterial)
{
    PackageScript &package = world.addPackage("Alone");
    const Array handle = open("Alone");
    calculate(package, handle);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoCompounds>), 1);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoPhases>), 1);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoEquilibriumRoutine>), 1);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoPropertyRoutine>), 1);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoMaterialContext>), 0);
    EXPECT_EQ(package.references(), 5) << "the four and the package itself";

    bool terminated = false;
    package.onCall = [&](const std::string &method) {
        EXPECT_EQ(method, "Terminate");
        terminated = true;
        EXPECT_EQ(package.references(InterfaceId<ICapeUtilities>), 1);
        EXPECT_EQ(package.references(), 2) << "the package and the interface that is called";
        EXPECT_EQ(ReferencesOn(package.material.get()), 2) << "the package's and the record's";
    };
    world.log.clear();
    close(handle);
    EXPECT_TRUE(terminated);
    EXPECT_EQ(world.log, (CallLog{"package.Terminate", "package.released"}));
    package.onCall = nullptr;
}

TEST_F(OpenPackages, GiveUpTheMaterialAfterThePackage)
{
    MaterialKeeper package;
    MakeBinaryPackage(package);
    package.keepsMaterial = true;
    const CLSID classId = world.newClassId();
    world.serve(classId, package);
    world.registry().add(PackageClass("Keeper", ClassIdText(classId)));
    const Array handle = open("Keeper");
    calculate(package, handle);
    close(handle);
    EXPECT_EQ(package.materialReferencesAtRelease, 3) << "two of the package and the record's";
    EXPECT_EQ(ReferencesOn(package.keptMaterial.get()), 1);
    package.keptMaterial.reset();
    EXPECT_EQ(package.misuses, std::vector<std::string>());
}

TEST_F(OpenPackages, HaveTheirNameAsTheKeyThatTheyWereOpenedBy)
{
    ManagerScript &manager = world.addManager("Manager");
    world.addPackageOf(manager, "Pair");
    world.addPackage("Alone");
    EXPECT_EQ(mustReturn(1, {Scalar(6), open("Manager", "Pair")})[0].text(), Wide("Manager:Pair"));
    EXPECT_EQ(mustReturn(1, {Scalar(6), open("Alone", "ignored")})[0].text(), Wide("Alone"));
}

TEST_F(OpenPackages, OfAnEarlierLoadAreForgotten)
{
    world.addPackage("Alone");
    const Array handle = open("Alone");
    matlab.clear();
    matlab.load();
    EXPECT_EQ(handles(), std::vector<std::int32_t>());
    EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
    open("Alone");
}

TEST_F(OpenPackages, GiveUpTheirInterfacesInAFixedOrder)
{
    PackageScript &package = world.addPackage("Alone");
    const Array handle = open("Alone");
    calculate(package, handle);
    std::vector<IID> released;
    package.onInterfaceReleased = [&](REFIID iid) { released.push_back(iid); };
    close(handle);
    EXPECT_EQ(released,
              (std::vector<IID>{InterfaceId<ICapeThermoCompounds>, InterfaceId<ICapeThermoPhases>,
                                InterfaceId<ICapeThermoEquilibriumRoutine>, InterfaceId<ICapeThermoPropertyRoutine>,
                                InterfaceId<ICapeUtilities>, InterfaceId<IDispatch>}));
}

TEST_F(OpenPackages, GiveUpTheirListsInReverseOrderAfterThePackage)
{
    PackageScript &package = world.addPackage("Alone");
    // Every list has a length of its own, where it is free to have it.
    package.phaseLabels = TextArray({"V", "L", "S"});
    package.statesOfAggregation = BlankArray(VT_BSTR, 3);
    package.keyCompounds = BlankArray(VT_BSTR, 11);
    package.compoundIds = TextArray({"A", "B"});
    package.molecularWeights = NumberArray({18, 36});
    package.formulae = BlankArray(VT_BSTR, 12);
    package.compoundNames = BlankArray(VT_BSTR, 13);
    package.boilingTemperatures = BlankArray(VT_R8, 14);
    package.casNumbers = BlankArray(VT_BSTR, 15);
    const Array handle = open("Alone");
    mustReturn(1, {Scalar(7), handle});
    mustReturn(1, {Scalar(8), handle});
    world.log.clear();
    {
        LibraryCall<"VariantClear", decltype(VariantClear)> clears(VariantClear, [&](VARIANTARG *value) {
            if (value->vt == (VT_ARRAY | VT_BSTR) || value->vt == (VT_ARRAY | VT_R8)) {
                LONG last = 0;
                SafeArrayGetUBound(value->parray, 1, &last);
                BSTR text = nullptr;
                LONG first = 0;
                if (value->vt == (VT_ARRAY | VT_BSTR))
                    SafeArrayGetElement(value->parray, &first, &text);
                world.log.push_back((value->vt & VT_BSTR ? "texts " : "numbers ") + std::to_string(last + 1) + " " +
                                    Narrow(support::TextOf(text)));
                SysFreeString(text);
            }
            return VariantClear(value);
        });
        close(handle);
    }
    EXPECT_EQ(world.log, (CallLog{"package.Terminate", "package.released", "texts 11 ", "texts 3 ", "texts 3 V",
                                  "texts 15 ", "numbers 2 ", "numbers 14 ", "texts 13 ", "texts 12 ", "texts 2 A"}));
}
