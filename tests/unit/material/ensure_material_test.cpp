// How a package gets its material, and gets it once only.
#include "cape/error_text.h"
#include "gateway/state/global_text.h"
#include "material/ensure_material.h"
#include "material/material_object.h"
#include "tests/support/without_names.h"
#include "tests/unit/material/package_view.h"

#include <gtest/gtest.h>

namespace {

// A package with compounds "Light" and "Heavy" and the phase "Fluid". It counts what it is asked,
// and keeps its material if it is told to.
class FakePackage final : public WithoutNames<ICapeThermoCompounds>,
                          public WithoutNames<ICapeThermoPhases>,
                          public WithoutNames<ICapeThermoMaterialContext>,
                          public WithoutNames<ECapeUser> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        *object = nullptr;
        if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoCompounds>)
            *object = static_cast<ICapeThermoCompounds *>(this);
        else if (iid == InterfaceId<ICapeThermoPhases>)
            *object = static_cast<ICapeThermoPhases *>(this);
        else if (iid == InterfaceId<ECapeUser>)
            *object = static_cast<ECapeUser *>(this);
        else if (iid == InterfaceId<ICapeThermoMaterialContext>) {
            ++contextQueries;
            if (hasContext)
                *object = static_cast<ICapeThermoMaterialContext *>(this);
        }
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE SetMaterial(IDispatch *material) override
    {
        ++setMaterialCalls;
        given = material;
        if (FAILED(answer))
            return answer;
        if (keepsMaterial) {
            material->AddRef();
            kept.attach(material);
        }
        return answer;
    }
    HRESULT STDMETHODCALLTYPE UnsetMaterial() override
    {
        ADD_FAILURE() << "a package is never told to drop its material";
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *ids, VARIANT *, VARIANT *, VARIANT *, VARIANT *weights,
                                              VARIANT *) override
    {
        ++compoundListCalls;
        if (FAILED(compoundAnswer))
            return compoundAnswer;
        TextArgument idList({OLESTR("Light"), OLESTR("Heavy")});
        std::swap(*ids, idList.value);
        DoubleArgument weightList({18, 36});
        std::swap(*weights, weightList.value);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *labels, VARIANT *states, VARIANT *) override
    {
        ++phaseListCalls;
        if (FAILED(phaseAnswer))
            return phaseAnswer;
        TextArgument labelList({OLESTR("Fluid")});
        std::swap(*labels, labelList.value);
        TextArgument stateList({OLESTR("Unknown")});
        std::swap(*states, stateList.value);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_description(BSTR *description) override
    {
        *description = SysAllocString(OLESTR("I want 50% of \\another"));
        return S_OK;
    }

    // Not called here.
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR, BSTR, VARIANT *) override { return uncalled(); }
    HRESULT STDMETHODCALLTYPE get_code(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *) override { return E_NOTIMPL; }

    ULONG references = 1;
    bool hasContext = true;
    bool keepsMaterial = false;
    HRESULT answer = S_OK;
    HRESULT compoundAnswer = S_OK;
    HRESULT phaseAnswer = S_OK;
    int contextQueries = 0;
    int setMaterialCalls = 0;
    int compoundListCalls = 0;
    int phaseListCalls = 0;
    IDispatch *given = nullptr; // as it came, not a reference
    ComPointer<IDispatch> kept;

private:
    static HRESULT uncalled()
    {
        ADD_FAILURE() << "called unasked";
        return E_UNEXPECTED;
    }
};

class EnsureMaterialOf : public testing::Test {
protected:
    EnsureMaterialOf()
    {
        fake.AddRef(); // the record's
        record->package = static_cast<ICapeThermoCompounds *>(&fake);
        LastError = OLESTR("untouched");
    }
    ~EnsureMaterialOf() override
    {
        record.reset();
        fake.kept.reset();
        EXPECT_EQ(fake.references, 1u);
        EXPECT_EQ(Module.lockCount, locks);
    }

    // References on the record's material.
    ULONG materialReferences()
    {
        auto *const material = static_cast<ICapeThermoMaterial *>(record->material);
        material->AddRef();
        return material->Release();
    }

    const LONG locks = Module.lockCount;
    FakePackage fake;
    std::unique_ptr<OpenPackage> record = std::make_unique<OpenPackage>();
};

TEST_F(EnsureMaterialOf, AFreshRecordLoadsItsListsAndHandsTheMaterialOver)
{
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError), "untouched");
    EXPECT_EQ(fake.compoundListCalls, 1);
    EXPECT_EQ(fake.phaseListCalls, 1);
    EXPECT_EQ(fake.setMaterialCalls, 1);
    ASSERT_NE(record->material, nullptr);
    EXPECT_EQ(record->material->openPackage, record.get());
    EXPECT_EQ(record->material->compoundCount(), 2);
    EXPECT_EQ(record->material->phaseCount(), 1);
    EXPECT_TRUE(IsMissing(record->material->temperature));
}

TEST_F(EnsureMaterialOf, APackageGetsTheIdentityOfTheMaterial)
{
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(fake.given, static_cast<ICapeThermoMaterial *>(record->material));
}

TEST_F(EnsureMaterialOf, TheRecordHasOneReferenceAndThePackageItsOwn)
{
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(materialReferences(), 1u);
    EXPECT_EQ(Module.lockCount, locks + 1);
    EXPECT_EQ(fake.references, 4u); // the test's, the record's package, compounds and phases: no context
}

TEST_F(EnsureMaterialOf, AReferenceThatThePackageKeepsOutlivesTheRecord)
{
    fake.keepsMaterial = true;
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(materialReferences(), 2u);
    record.reset();
    EXPECT_EQ(Module.lockCount, locks + 1);
    fake.kept.reset();
    EXPECT_EQ(Module.lockCount, locks);
}

TEST_F(EnsureMaterialOf, ASecondCallOnlyTestsThePointer)
{
    EXPECT_TRUE(EnsureMaterial(*record));
    const CMaterialObject *const material = record->material;
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(record->material, material);
    EXPECT_EQ(fake.contextQueries, 1);
    EXPECT_EQ(fake.setMaterialCalls, 1);
    EXPECT_EQ(fake.compoundListCalls, 1);
    EXPECT_EQ(materialReferences(), 1u);
}

TEST_F(EnsureMaterialOf, APackageWithoutContextFailsOnceAndThenPasses)
{
    fake.hasContext = false;
    EXPECT_FALSE(EnsureMaterial(*record));
    const std::string prefix = "Failed to get ICapeThermoMaterialContext from property package: ";
    EXPECT_EQ(Ascii(LastError), prefix + Ascii(HResultText(E_NOINTERFACE)));
    EXPECT_GT(LastError.size(), prefix.size());
    ASSERT_NE(record->material, nullptr);
    EXPECT_EQ(materialReferences(), 1u);
    LastError = OLESTR("untouched");
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError), "untouched");
    EXPECT_EQ(fake.contextQueries, 1);
    EXPECT_EQ(fake.setMaterialCalls, 0);
}

TEST_F(EnsureMaterialOf, APackageThatRefusesItsMaterialFailsOnceInItsOwnWordsAndThenPasses)
{
    fake.answer = ECapeUnknownHR;
    EXPECT_FALSE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError), "Failed to set material object on property package: I want 50% of \\another");
    ASSERT_NE(record->material, nullptr);
    EXPECT_EQ(materialReferences(), 1u);
    EXPECT_EQ(fake.references, 4u);
    LastError = OLESTR("untouched");
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError), "untouched");
    EXPECT_EQ(fake.setMaterialCalls, 1);
}

TEST_F(EnsureMaterialOf, AResultOfComIsToldInTheSystemsWords)
{
    fake.answer = E_OUTOFMEMORY;
    EXPECT_FALSE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError),
              "Failed to set material object on property package: " + Ascii(HResultText(E_OUTOFMEMORY)));
}

TEST_F(EnsureMaterialOf, APackageWithoutCompoundsFailsEachTimeAndHasNoMaterial)
{
    fake.compoundAnswer = ECapeUnknownHR;
    for (int calls = 1; calls <= 2; ++calls) {
        EXPECT_FALSE(EnsureMaterial(*record));
        EXPECT_EQ(Ascii(LastError), "Failed to get list of compounds from property package: I want 50% of \\another");
        EXPECT_EQ(record->material, nullptr);
        EXPECT_EQ(fake.compoundListCalls, calls);
    }
    EXPECT_EQ(fake.phaseListCalls, 0);
}

TEST_F(EnsureMaterialOf, APackageWithoutPhasesFailsAfterItsCompoundsAreLoaded)
{
    fake.phaseAnswer = ECapeUnknownHR;
    EXPECT_FALSE(EnsureMaterial(*record));
    EXPECT_EQ(Ascii(LastError), "Failed to get list of phases from property package: I want 50% of \\another");
    EXPECT_EQ(record->material, nullptr);
    EXPECT_TRUE(record->compoundsLoaded);
    fake.phaseAnswer = S_OK;
    EXPECT_TRUE(EnsureMaterial(*record));
    EXPECT_EQ(fake.compoundListCalls, 1);
}

} // namespace
