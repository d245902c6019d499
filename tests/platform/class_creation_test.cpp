#include "tests/platform/counting_object.h"
#include "tests/platform/module/module_class.h"
#include "tests/platform/scratch_key.h"

namespace {

constexpr CLSID localClass = {0x2F0E6C11, 0x8B4D, 0x4C0A, {0x8E, 0x35, 0x71, 0xD2, 0x46, 0x90, 0xAB, 0x03}};
constexpr DWORD everyContext = 0x17;

// COM, ready on this thread while it lives.
struct Apartment {
    Apartment() { EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment &) = delete;
    Apartment &operator=(const Apartment &) = delete;
};

// Gives out one object, or fails.
class CountingFactory final : public IClassFactory {
public:
    ULONG references = 1; // the test's own
    HRESULT answer = S_OK;
    CountingObject object;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **result) override
    {
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
        *result = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID iid, void **result) override
    {
        *result = nullptr;
        return FAILED(answer) ? answer : object.QueryInterface(iid, result);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

HRESULT create(REFCLSID classId, DWORD context = CLSCTX_INPROC_SERVER, REFIID iid = InterfaceId<IUnknown>)
{
    IUnknown *object = reinterpret_cast<IUnknown *>(1);
    const HRESULT result = CoCreateInstance(classId, nullptr, context, iid, reinterpret_cast<void **>(&object));
    if (SUCCEEDED(result)) {
        object->Release();
    } else {
        EXPECT_EQ(object, nullptr);
    }
    return result;
}

WideString modulePath()
{
    const HMODULE module = LoadLibraryW(OLESTR("platform_test_module.dll"));
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(module, path, 1024);
    FreeLibrary(module);
    return WideString(path, length);
}

} // namespace

TEST(CoInitialize, CountsItsCalls)
{
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_FALSE);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
    CoUninitialize();
    EXPECT_EQ(create(localClass), REGDB_E_CLASSNOTREG);
    CoUninitialize();
    EXPECT_EQ(create(localClass), CO_E_NOTINITIALIZED);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    CoUninitialize();
}

TEST(CoCreateInstance, NeedsCom) { EXPECT_EQ(create(localClass), CO_E_NOTINITIALIZED); }

TEST(CoCreateInstance, NeedsAPlaceForTheObject)
{
    Apartment apartment;
    EXPECT_EQ(CoCreateInstance(localClass, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<IUnknown>, nullptr), E_POINTER);
}

TEST(CoCreateInstance, SaysThatAClassIsNotRegistered)
{
    Apartment apartment;
    EXPECT_EQ(create(localClass), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(create(localClass, everyContext), REGDB_E_CLASSNOTREG);
}

TEST(ClassObject, MakesObjectsUntilItIsRevoked)
{
    Apartment apartment;
    CountingFactory factory;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    EXPECT_EQ(factory.references, 2u);
    for (const DWORD context : {DWORD{CLSCTX_INPROC_SERVER}, everyContext}) {
        EXPECT_EQ(create(localClass, context), S_OK);
        EXPECT_EQ(factory.references, 2u);
        EXPECT_EQ(factory.object.references, 1u);
    }
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(factory.references, 1u);
    EXPECT_EQ(create(localClass), REGDB_E_CLASSNOTREG);
    EXPECT_TRUE(FAILED(CoRevokeClassObject(cookie)));
}

TEST(ClassObject, HandsOnWhatItsFactoryAnswers)
{
    Apartment apartment;
    CountingFactory factory;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    EXPECT_EQ(create(localClass, CLSCTX_INPROC_SERVER, InterfaceId<IPersistStreamInit>), E_NOINTERFACE);
    factory.answer = E_ACCESSDENIED;
    EXPECT_EQ(create(localClass), E_ACCESSDENIED);
    EXPECT_EQ(factory.references, 2u);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

TEST(ClassObject, IsOnlyThereForItsContext)
{
    Apartment apartment;
    CountingFactory factory;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE, &cookie), S_OK);
    EXPECT_EQ(create(localClass, CLSCTX_INPROC_SERVER), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

TEST(ClassObject, ForManyClientsElsewhereServesThoseInTheProcess)
{
    Apartment apartment;
    CountingFactory factory;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    EXPECT_EQ(create(localClass, CLSCTX_INPROC_SERVER), S_OK);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

TEST(ClassObject, NeedsAFactoryAndAPlaceForTheCookie)
{
    Apartment apartment;
    CountingFactory factory;
    DWORD cookie = 0;
    EXPECT_EQ(CoRegisterClassObject(localClass, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              E_INVALIDARG);
    EXPECT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(factory.references, 1u);
}

TEST(ClassObject, IsRevokedWhenComEnds)
{
    CountingFactory factory;
    {
        Apartment apartment;
        DWORD cookie = 0;
        ASSERT_EQ(CoRegisterClassObject(localClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    }
    EXPECT_EQ(factory.references, 1u);
}

TEST(ClassInALibrary, IsCreatedFromTheRegisteredPath)
{
    Apartment apartment;
    ScratchKey registered(OLESTR("CLSID\\") MODULE_CLASS_TEXT);
    ScratchKey server(registered.name() + OLESTR("\\InprocServer32"));
    server.setText(nullptr, modulePath());
    server.setText(OLESTR("ThreadingModel"), OLESTR("Apartment"));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(create(moduleClass), S_OK);
        EXPECT_EQ(create(moduleClass, everyContext), S_OK);
    }
    EXPECT_EQ(create(moduleClass, CLSCTX_INPROC_SERVER, InterfaceId<IDispatch>), E_NOINTERFACE);
}

TEST(ClassInALibrary, SurvivesTheEndOfComBetweenTwoUses)
{
    ScratchKey registered(OLESTR("CLSID\\") MODULE_CLASS_TEXT);
    ScratchKey server(registered.name() + OLESTR("\\InprocServer32"));
    server.setText(nullptr, modulePath());
    for (int i = 0; i < 2; ++i) {
        Apartment apartment;
        EXPECT_EQ(create(moduleClass), S_OK);
    }
}

// The stand-in answers as Wine does; Windows tells some of these apart, so any failure is right.
TEST(ClassInALibrary, IsNotCreatedFromALibraryThatCannotGiveIt)
{
    Apartment apartment;
    ScratchKey registered(OLESTR("CLSID\\") FOREIGN_CLASS_TEXT);
    EXPECT_TRUE(FAILED(create(foreignClass))) << "no server";
    ScratchKey server(registered.name() + OLESTR("\\InprocServer32"));
    EXPECT_TRUE(FAILED(create(foreignClass))) << "no path";
    server.setText(nullptr, OLESTR("\\no\\such\\module.dll"));
    EXPECT_TRUE(FAILED(create(foreignClass))) << "no file";
    server.setText(nullptr, modulePath());
    EXPECT_TRUE(FAILED(create(foreignClass))) << "not a class of the library";
}

TEST(TypeLibrary, ThatIsNotRegisteredIsNotLoaded)
{
    ITypeLib *library = nullptr;
    EXPECT_EQ(LoadRegTypeLib(localClass, 1, 0, 0, &library), TYPE_E_LIBNOTREGISTERED);
    EXPECT_EQ(library, nullptr);
}
