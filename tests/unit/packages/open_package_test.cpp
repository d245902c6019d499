// What a record holds after its package's lists came, or did not.
#include "gateway/state/global_text.h"
#include "packages/open_package.h"
#include "tests/support/without_names.h"
#include "tests/unit/material/package_view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

// Hands over the arrays of a test as they are, whatever it answers besides.
class ListingPackage final : public WithoutNames<ICapeThermoCompounds>, public WithoutNames<ICapeThermoPhases> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        *object = nullptr;
        if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoCompounds>)
            *object = static_cast<ICapeThermoCompounds *>(this);
        else if (iid == InterfaceId<ICapeThermoPhases>)
            *object = static_cast<ICapeThermoPhases *>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names, VARIANT *boiling,
                                              VARIANT *weights, VARIANT *casNumbers) override
    {
        for (const VARIANT *result : {ids, formulae, names, boiling, weights, casNumbers})
            EXPECT_EQ(result->vt, VT_EMPTY);
        *ids = first;
        *weights = second;
        return answer;
    }
    HRESULT STDMETHODCALLTYPE GetPhaseList(VARIANT *labels, VARIANT *states, VARIANT *keyCompounds) override
    {
        for (const VARIANT *result : {labels, states, keyCompounds})
            EXPECT_EQ(result->vt, VT_EMPTY);
        *labels = first;
        *states = second;
        return answer;
    }

    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNumPhases(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPhaseInfo(BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }

    ULONG references = 1;
    HRESULT answer = S_OK;
    VARIANT first = {};
    VARIANT second = {};
};

class PackageRecord : public testing::Test {
protected:
    ListingPackage package;
    OpenPackage record;

    PackageRecord() { record.package = static_cast<ICapeThermoCompounds *>(&package); }

    // Gives the arrays away: they are no longer the arguments'.
    void hand(OwnedVariant &first, OwnedVariant &second)
    {
        package.first = first.value;
        package.second = second.value;
        VariantInit(&first.value);
        VariantInit(&second.value);
    }
};

} // namespace

TEST_F(PackageRecord, OfWeightsThatAreNotAboveZeroIsFilledUpToTheFirstOfThem)
{
    TextArgument ids({OLESTR("A"), OLESTR("B"), OLESTR("C")});
    DoubleArgument weights({18, 0, 36});
    hand(ids, weights);
    EXPECT_FALSE(EnsureCompounds(record));
    EXPECT_EQ(LastError, OLESTR("One or more molecular weights returned by property package are zero or negative"));
    EXPECT_FALSE(record.compoundsLoaded);
    EXPECT_EQ(record.compoundIds, (std::vector<WideString>{OLESTR("A"), OLESTR("B"), OLESTR("")}));
    EXPECT_EQ(record.molecularWeights, (std::vector<double>{18, 0, 0}));
}

TEST_F(PackageRecord, OfAZeroWeightInTheLastPlaceIsFilledToTheEnd)
{
    TextArgument ids({OLESTR("A"), OLESTR("B")});
    DoubleArgument weights({std::numeric_limits<double>::quiet_NaN(), 0});
    hand(ids, weights);
    EXPECT_FALSE(EnsureCompounds(record));
    EXPECT_FALSE(record.compoundsLoaded);
    EXPECT_EQ(record.compoundIds, (std::vector<WideString>{OLESTR("A"), OLESTR("B")}));
    ASSERT_EQ(record.molecularWeights.size(), 2u);
    EXPECT_TRUE(std::isnan(record.molecularWeights[0]));
    EXPECT_EQ(record.molecularWeights[1], 0);
}

// The leak checker sees what is not cleared.
TEST_F(PackageRecord, ClearsWhatAFailingPackageWroteIntoTheListsOfPhases)
{
    VariantArray labels;
    labels.Create(2, VT_BSTR);
    labels.HandOver(&package.first);
    VariantArray states;
    states.Create(2, VT_BSTR);
    states.HandOver(&package.second);
    package.answer = E_FAIL;
    EXPECT_FALSE(EnsurePhases(record));
    EXPECT_EQ(record.phaseLabelList.value.vt, VT_EMPTY);
}

// A package that fails may still hold what it wrote into the results.
TEST_F(PackageRecord, LeavesToAFailingPackageTheListsOfCompounds)
{
    TextArgument texts({OLESTR("mine")});
    DoubleArgument numbers({1});
    package.first = texts.value;
    package.second = numbers.value;
    package.answer = E_FAIL;
    EXPECT_FALSE(EnsureCompounds(record));
    EXPECT_EQ(record.compoundIdList.value.vt, VT_EMPTY);
    EXPECT_EQ(TextsIn(texts), std::vector<std::string>{"mine"});
    EXPECT_EQ(DoublesIn(numbers), std::vector<double>{1});
}
