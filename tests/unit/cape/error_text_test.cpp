#include "cape/error_text.h"

#include "cape/com/cape_open.h"
#include "cape/com/com_object.h"
#include "cape/error_state.h"

#include <gtest/gtest.h>

namespace {

HRESULT capeResult(unsigned code) { return static_cast<HRESULT>(0x80040500u + code); }

// An object whose error interfaces say what a test wants; each can be missing.
class FailingObject : public DualInterface<ECapeUser, LIBID_CAPEOPEN110>,
                      public DualInterface<ECapeRoot, LIBID_CAPEOPEN110> {
public:
    LPCWSTR description = nullptr;
    LPCWSTR name = nullptr;
    bool hasUser = true;
    bool hasRoot = true;
    HRESULT answer = S_OK;
    int references = 0;
    int questions = 0;

    IUnknown *identity() { return static_cast<ECapeUser *>(this); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        ++questions;
        *object = nullptr;
        if (hasUser && iid == InterfaceId<ECapeUser>)
            *object = static_cast<ECapeUser *>(this);
        else if (hasRoot && iid == InterfaceId<ECapeRoot>)
            *object = static_cast<ECapeRoot *>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }

    HRESULT STDMETHODCALLTYPE get_name(BSTR *result) override { return give(name, result); }
    HRESULT STDMETHODCALLTYPE get_description(BSTR *result) override { return give(description, result); }
    HRESULT STDMETHODCALLTYPE get_code(LONG *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *) override { return E_NOTIMPL; }

private:
    HRESULT give(LPCWSTR text, BSTR *result)
    {
        *result = text ? SysAllocString(text) : nullptr;
        return answer;
    }
};

} // namespace

TEST(CapeErrorText, AnObjectWithoutErrorInterfacesGetsTheStandardText)
{
    FailingObject object;
    object.hasUser = object.hasRoot = false;
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x0B)), OLESTR("computation error"));
    EXPECT_EQ(object.references, 0);
}

TEST(CapeErrorText, TheDescriptionWinsOverTheName)
{
    FailingObject object;
    object.description = OLESTR("pressure out of range");
    object.name = OLESTR("ECapeOutOfBounds");
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x07)), OLESTR("pressure out of range"));
    EXPECT_EQ(object.references, 0);
}

TEST(CapeErrorText, AnEmptyOrNullDescriptionGivesWayToTheName)
{
    FailingObject object;
    object.name = OLESTR("X");
    object.description = OLESTR("");
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x0B)), OLESTR("X"));
    object.description = nullptr;
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x0B)), OLESTR("X"));
    EXPECT_EQ(object.references, 0);
}

TEST(CapeErrorText, EmptyWordsOnBothInterfacesGiveTheStandardText)
{
    FailingObject object;
    object.description = OLESTR("");
    object.name = OLESTR("");
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x01)), OLESTR("Failed to get error name for ECapeUnknown"));
    EXPECT_EQ(object.references, 0);
}

TEST(CapeErrorText, WordsCountEvenWhenTheMethodReportsFailure)
{
    FailingObject object;
    object.description = OLESTR("still readable");
    object.answer = E_FAIL;
    EXPECT_EQ(CapeErrorText(object.identity(), capeResult(0x02)), OLESTR("still readable"));
}

TEST(CapeErrorText, AResultOutsideTheBlockIsNotAskedOfTheObject)
{
    FailingObject object;
    object.description = OLESTR("not for this result");
    for (const HRESULT hr : {E_ACCESSDENIED, capeResult(0x00), capeResult(0x1B)}) {
        EXPECT_EQ(CapeErrorText(object.identity(), hr), HResultText(hr));
        EXPECT_EQ(object.questions, 0);
    }
}

TEST(CapeErrorText, HasATextForEachResultOfTheBlock)
{
    FailingObject object;
    object.hasUser = object.hasRoot = false;
    const LPCWSTR texts[] = {
        OLESTR("Failed to get error name for ECapeUnknown"),
        OLESTR("invalid data"),
        OLESTR("license problem"),
        OLESTR("Bad Cape-Open parameter"),
        OLESTR("Bad argument"),
        OLESTR("Invalid argument"),
        OLESTR("index out of bounds"),
        OLESTR("current implementation related error"),
        OLESTR("not implemented"),
        OLESTR("implementation is limited"),
        OLESTR("computation error"),
        OLESTR("out of resources"),
        OLESTR("out of memory"),
        OLESTR("operation was timed out"),
        OLESTR("initialization error"),
        OLESTR("solution error"),
        OLESTR("invalid order of invocations"),
        OLESTR("invalid operation"),
        OLESTR("storage / persistence error"),
        OLESTR("illegal access"),
        OLESTR("persistence error: not found"),
        OLESTR("persistence system error"),
        OLESTR("persistence overflow error"),
        OLESTR("solver scope error"),
        OLESTR("Hessian information not available"),
        OLESTR("One or more of the requested thermodynamic properties are not set on the material"),
    };
    ASSERT_EQ(std::size(texts), 0x1Au);
    for (unsigned i = 0; i < std::size(texts); ++i)
        EXPECT_EQ(CapeErrorText(object.identity(), capeResult(i + 1)), texts[i]) << i + 1;
}

TEST(HResultText, AResultThatTheSystemDoesNotKnowIsShownAsEightDigits)
{
    EXPECT_EQ(HResultText(capeResult(0x1B)), OLESTR("error code 0x8004051B"));
    EXPECT_EQ(HResultText(static_cast<HRESULT>(0x8123ABCDu)), OLESTR("error code 0x8123ABCD"));
}

TEST(HResultText, TheSystemsTextLosesItsLineEnd)
{
    const WideString text = HResultText(E_FAIL);
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.back(), OLESTR('\n'));
    EXPECT_NE(text.back(), OLESTR('\r'));
    EXPECT_EQ(text.find(OLESTR("error code")), WideString::npos);
}
