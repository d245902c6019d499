#include "tests/reference/com/host.h"

#include "platform/procedure.h"

#include <gtest/gtest.h>

Library::Library() : module(LoadLibraryW(OLESTR("VerdanthReference.dll"))) { EXPECT_NE(module, nullptr); }

Library::~Library() { FreeLibrary(module); }

HRESULT Library::getClassObject(REFCLSID classId, REFIID iid, void **object) const
{
    return findProcedure<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void **)>(module, "DllGetClassObject")(classId, iid,
                                                                                                         object);
}

HRESULT Library::canUnloadNow() const { return findProcedure<HRESULT STDAPICALLTYPE()>(module, "DllCanUnloadNow")(); }

HRESULT Library::registerServer() const
{
    return findProcedure<HRESULT STDAPICALLTYPE()>(module, "DllRegisterServer")();
}

HRESULT Library::unregisterServer() const
{
    return findProcedure<HRESULT STDAPICALLTYPE()>(module, "DllUnregisterServer")();
}

WideString Library::path() const
{
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(module, path, 1024);
    return WideString(path, length);
}

Argument texts(const std::vector<std::string> &list)
{
    Argument value;
    BSTR *element = value.makeTexts(static_cast<int>(list.size()));
    for (const std::string &text : list)
        *element++ = text.empty() ? nullptr : Bstr(text).detach();
    return value;
}

Argument numbers(const std::vector<double> &list)
{
    Argument value;
    std::copy(list.begin(), list.end(), value.makeNumbers(static_cast<int>(list.size())));
    return value;
}

std::vector<std::string> textsOf(const VARIANT &value)
{
    reference::TextView list;
    EXPECT_TRUE(list.open(value));
    std::vector<std::string> result;
    for (const BSTR text : list)
        result.push_back(narrow(text));
    return result;
}

std::vector<double> numbersOf(const VARIANT &value)
{
    reference::NumberView list;
    EXPECT_TRUE(list.open(value));
    return {list.begin(), list.end()};
}

std::string narrow(BSTR text) { return std::string(text, text + SysStringLen(text)); }

LastFailure lastFailure(IUnknown *object)
{
    ComPointer<ECapeRoot> root;
    ComPointer<ECapeUser> user;
    if (FAILED(root.queryFrom(object)) || FAILED(user.queryFrom(object))) {
        ADD_FAILURE() << "The object does not describe errors";
        return {};
    }
    Bstr name;
    Bstr description;
    Bstr interfaceName;
    Bstr operation;
    Bstr scope;
    EXPECT_EQ(root->get_name(name.out()), S_OK);
    EXPECT_EQ(user->get_description(description.out()), S_OK);
    EXPECT_EQ(user->get_interfaceName(interfaceName.out()), S_OK);
    EXPECT_EQ(user->get_operation(operation.out()), S_OK);
    EXPECT_EQ(user->get_scope(scope.out()), S_OK);
    return {narrow(name.get()), narrow(description.get()), narrow(interfaceName.get()), narrow(operation.get()),
            narrow(scope.get())};
}
