// New materials and copies between materials.
#include "tests/support/without_names.h"
#include "tests/unit/material/material_test.h"
#include "tests/unit/support/allocation_watch.h"

namespace {

// A material of another provider: it answers IDispatch and nothing of ours.
class ForeignMaterial final : public WithoutNames<IDispatch> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        *object = iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    ULONG references = 1;
};

class MaterialCopy : public MaterialTest {
protected:
    // Sets something in every field.
    void fill()
    {
        const TextArgument pair({OLESTR("Vapor"), OLESTR("Liquid")});
        EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, DoubleArgument({300})), "");
        EXPECT_EQ(view.setOverall(OLESTR("pressure"), none, DoubleArgument({1e5})), "");
        EXPECT_EQ(view.setOverall(OLESTR("fraction"), mass, DoubleArgument({0.25, 0.75})), "");
        EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mass, DoubleArgument({7})), "");
        EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, DoubleArgument({8, 9})), "");
        EXPECT_EQ(view.setPhase(OLESTR("fraction"), OLESTR("Liquid"), mass, DoubleArgument({0.125, 0.875})), "");
        EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), OLESTR("Liquid"), mass, DoubleArgument({1})), "");
        EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR("Liquid"), none, DoubleArgument({6})), "");
        EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), pair, none, DoubleArgument({3, 4})), "");
    }

    // A material made by this one.
    ComPointer<IDispatch> create()
    {
        ComPointer<IDispatch> created;
        EXPECT_EQ(view->CreateMaterial(created.out()), S_OK);
        return created;
    }

    static CMaterialObject &objectOf(IUnknown *material)
    {
        ComPointer<IMaterial> identity;
        EXPECT_EQ(identity.queryFrom(material), S_OK);
        CMaterialObject *object = nullptr;
        EXPECT_EQ(identity->GetMaterialObject(&object), S_OK);
        return *object;
    }

    std::string copyFrom(const PackageView &target, IDispatch *source)
    {
        return target.refusal(target->CopyFromMaterial(&source));
    }
};

TEST_F(MaterialCopy, CreatesAnEmptyMaterialOfTheSamePackage)
{
    fill();
    const LONG locks = Module.lockCount;
    const ComPointer<IDispatch> created = create();
    EXPECT_EQ(Module.lockCount, locks + 1);
    const CMaterialObject &object = objectOf(created.get());
    EXPECT_NE(&object, &material.material());
    EXPECT_EQ(object.openPackage, &material.package());
    EXPECT_TRUE(IsMissing(object.temperature));
    EXPECT_TRUE(IsMissing(object.overallComposition[0]));
    EXPECT_EQ(object.phasePresent[1], 0);
    EXPECT_TRUE(object.overallProps.empty());
    EXPECT_TRUE(object.phaseProps[1].empty());
}

TEST_F(MaterialCopy, GivesTheCreatedMaterialAwayWithOneReference)
{
    const LONG locks = Module.lockCount;
    IDispatch *created = create().detach();
    EXPECT_EQ(created->AddRef(), 2u);
    EXPECT_EQ(created->Release(), 1u);
    void *identity = nullptr;
    EXPECT_EQ(created->QueryInterface(InterfaceId<ICapeThermoMaterial>, &identity), S_OK);
    EXPECT_EQ(identity, created);
    EXPECT_EQ(created->Release(), 1u);
    EXPECT_EQ(created->Release(), 0u);
    EXPECT_EQ(Module.lockCount, locks);
}

TEST_F(MaterialCopy, CreatesNothingForANullOutPointer)
{
    const LONG locks = Module.lockCount;
    EXPECT_EQ(view->CreateMaterial(nullptr), E_POINTER);
    EXPECT_EQ(Module.lockCount, locks);
}

TEST_F(MaterialCopy, CopiesEveryFieldAndEntry)
{
    fill();
    const ComPointer<IDispatch> created = create();
    const PackageView copy(created.get());
    EXPECT_EQ(copyFrom(copy, view.get()), "");
    const CMaterialObject &object = objectOf(created.get());
    EXPECT_EQ(object.temperature, 300);
    EXPECT_EQ(object.pressure, 1e5);
    EXPECT_EQ(object.overallComposition[0], 0.25);
    EXPECT_EQ(object.overallComposition[1], 0.75);
    EXPECT_EQ(object.overallCompositionBasis, 1);
    EXPECT_EQ(object.phaseComposition[1][0], 0.125);
    EXPECT_EQ(object.phaseComposition[1][1], 0.875);
    EXPECT_TRUE(IsMissing(object.phaseComposition[0][0]));
    EXPECT_EQ(object.phaseCompositionBasis[1], 1);
    EXPECT_TRUE(IsMissing(object.phaseFraction[0]));
    EXPECT_EQ(object.phaseFraction[1], 1);
    EXPECT_EQ(object.phaseFractionBasis[1], 1);
    EXPECT_EQ(object.phasePresent[0], 0);
    EXPECT_EQ(object.phasePresent[1], 1);
    EXPECT_EQ(object.overallProps.all().size(), 2u);
    EXPECT_EQ(copy.overall(OLESTR("enthalpy"), mass).values, std::vector<double>{7});
    EXPECT_EQ(copy.overall(OLESTR("fugacity"), none).values, (std::vector<double>{8, 9}));
    EXPECT_EQ(copy.phase(OLESTR("viscosity"), OLESTR("Liquid"), none).values, std::vector<double>{6});
    EXPECT_EQ(copy.twoPhase(OLESTR("kvalue"), TextArgument({OLESTR("Vapor"), OLESTR("Liquid")}), none).values,
              (std::vector<double>{3, 4}));
}

TEST_F(MaterialCopy, SharesNothingWithItsSource)
{
    fill();
    const ComPointer<IDispatch> created = create();
    const PackageView copy(created.get());
    EXPECT_EQ(copyFrom(copy, view.get()), "");
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, DoubleArgument({1, 1})), "");
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), mole, DoubleArgument({1, 0})), "");
    EXPECT_EQ(copy.overall(OLESTR("fugacity"), none).values, (std::vector<double>{8, 9}));
    EXPECT_EQ(view->ClearAllProps(), S_OK);
    EXPECT_EQ(copy.overall(OLESTR("fraction"), mass).values, (std::vector<double>{0.25, 0.75}));
    EXPECT_EQ(copy.phase(OLESTR("viscosity"), OLESTR("Liquid"), none).values, std::vector<double>{6});
}

TEST_F(MaterialCopy, DropsWhatTheTargetHad)
{
    const ComPointer<IDispatch> created = create();
    const PackageView copy(created.get());
    EXPECT_EQ(copy.setOverall(OLESTR("viscosity"), none, DoubleArgument({1})), "");
    EXPECT_EQ(copy.setPhase(OLESTR("temperature"), OLESTR("Vapor"), none, DoubleArgument({1})), "");
    EXPECT_EQ(copyFrom(copy, view.get()), "");
    EXPECT_TRUE(objectOf(created.get()).overallProps.empty());
    EXPECT_EQ(objectOf(created.get()).phasePresent[0], 0);
    EXPECT_TRUE(IsMissing(objectOf(created.get()).temperature));
}

TEST_F(MaterialCopy, KeepsNoReferenceOnItsSource)
{
    const ComPointer<IDispatch> created = create();
    EXPECT_EQ(copyFrom(PackageView(created.get()), view.get()), "");
    EXPECT_EQ(material->AddRef(), 3u); // the test's, the view's, this one
    EXPECT_EQ(material->Release(), 2u);
}

TEST_F(MaterialCopy, OfAMaterialOntoItselfClearsIt)
{
    fill();
    EXPECT_EQ(copyFrom(view, view.get()), "");
    EXPECT_TRUE(IsMissing(material->temperature));
    EXPECT_TRUE(IsMissing(material->overallComposition[1]));
    EXPECT_TRUE(IsMissing(material->phaseFraction[1]));
    EXPECT_EQ(material->phasePresent[1], 0);
    EXPECT_TRUE(material->overallProps.empty());
    EXPECT_TRUE(material->phaseProps[0].empty());
    EXPECT_EQ(material->overallCompositionBasis, 1);
}

TEST_F(MaterialCopy, RefusesTheMaterialOfAnotherPackageThoughItHasTheSameCompounds)
{
    fill();
    TestMaterial other({18, 36});
    EXPECT_EQ(copyFrom(view, static_cast<ICapeThermoMaterial *>(&other.material())),
              "Invalid copy | Source material is not of same type | ICapeThermoMaterial | CopyFromMaterial");
    EXPECT_EQ(material->temperature, 300);
    EXPECT_EQ(material->overallProps.all().size(), 2u);
    EXPECT_EQ(other->AddRef(), 2u);
    EXPECT_EQ(other->Release(), 1u);
}

TEST_F(MaterialCopy, RefusesAForeignMaterialAndKeepsWhatItHas)
{
    fill();
    ForeignMaterial foreign;
    const std::string words = "Not a Matlab material | Cannot copy from the specified material object: not a Matlab "
                              "thermo material object | ICapeThermoMaterial | CopyFromMaterial";
    EXPECT_EQ(copyFrom(view, &foreign), words);
    EXPECT_EQ(foreign.references, 1u);
    EXPECT_EQ(material->temperature, 300);
    EXPECT_EQ(material->overallProps.all().size(), 2u);
}

TEST_F(MaterialCopy, RefusesToCopyFromNothing)
{
    const std::string words = "Not a Matlab material | Cannot copy from the specified material object: not a Matlab "
                              "thermo material object | ICapeThermoMaterial | CopyFromMaterial";
    EXPECT_EQ(copyFrom(view, nullptr), words);
    EXPECT_EQ(view.refusal(view->CopyFromMaterial(nullptr)), words);
}

TEST_F(MaterialCopy, TellsThatMemoryIsOut)
{
    fill();
    const ComPointer<IDispatch> created = create();
    const PackageView copy(created.get());
    const RefusedAllocations noMemory;
    EXPECT_EQ(copyFrom(copy, view.get()), "0x8007000E");
    EXPECT_EQ(copy.errorState(), " |  |  | ");
}

// What storing could not finish in the source is not set in the copy either.
TEST_F(MaterialCopy, LeavesOutAnEntryThatHasNoValues)
{
    {
        const RefusedAllocations noMemory;
        EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, DoubleArgument({1})), "0x8007000E");
    }
    const ComPointer<IDispatch> created = create();
    const PackageView copy(created.get());
    EXPECT_EQ(copyFrom(copy, view.get()), "");
    EXPECT_TRUE(objectOf(created.get()).overallProps.empty());
}

} // namespace
