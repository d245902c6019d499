// A library for the tests to load: two functions, and a COM class whose objects can nothing but count.
#include "tests/platform/module/module_class.h"
#include "tests/support/standing_factory.h"

#include <new>

namespace {

LONG objects = 0;

class Unadorned final : public IUnknown {
public:
    Unadorned() { ++objects; }
    ~Unadorned() { --objects; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        const bool known = iid == InterfaceId<IUnknown>;
        *object = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }

private:
    ULONG references = 1;
};

class Factory final : public StandingFactory {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) override
    {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        Unadorned *made = new (std::nothrow) Unadorned;
        if (!made)
            return E_OUTOFMEMORY;
        const HRESULT result = made->QueryInterface(iid, object);
        made->Release();
        return result;
    }
};

Factory factory;

} // namespace

extern "C" {

int Twice(int number);
int Twice(int number) { return 2 * number; }

int ordinal_14(int number);
int ordinal_14(int number) { return 14 * number; }

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID *object);
HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID *object)
{
    *object = nullptr;
    const bool known = classId == moduleClass || classId == filedClass;
    return known ? factory.QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT STDAPICALLTYPE DllCanUnloadNow();
HRESULT STDAPICALLTYPE DllCanUnloadNow() { return objects == 0 ? S_OK : S_FALSE; }
}
