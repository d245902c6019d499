// What a host needs to use the library: its exports, and values for arguments.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "reference/com/automation.h"

#include <string>
#include <string_view>
#include <vector>

// The library under test, loaded as long as the object lives.
class Library {
public:
    Library();
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;
    ~Library();

    HRESULT getClassObject(REFCLSID classId, REFIID iid, void **object) const;
    HRESULT canUnloadNow() const;
    HRESULT registerServer() const;
    HRESULT unregisterServer() const;
    WideString path() const;

    template <class Interface> ComPointer<Interface> create(REFCLSID classId) const
    {
        ComPointer<IClassFactory> factory;
        ComPointer<Interface> object;
        if (SUCCEEDED(getClassObject(classId, InterfaceId<IClassFactory>, factory.outVoid())))
            factory->CreateInstance(nullptr, InterfaceId<Interface>, object.outVoid());
        return object;
    }

private:
    HMODULE module;
};

// The key of the package manager's class below HKEY_CLASSES_ROOT.
inline constexpr std::string_view managerKey = "CLSID\\{F0FB3725-917D-4D88-B616-196260C727EA}";

// An argument of a call.
class Argument : public reference::Value {
public:
    Argument() = default;
    Argument(Argument &&other) noexcept { other.give(out()); }
    VARIANT detach()
    {
        VARIANT value;
        give(&value);
        return value;
    }
};
Argument texts(const std::vector<std::string> &list); // an empty string becomes a null BSTR
Argument numbers(const std::vector<double> &list);

// The content of arrays; a failure of the test when the value is no such array.
std::vector<std::string> textsOf(const VARIANT &value);
std::vector<double> numbersOf(const VARIANT &value);

std::string narrow(BSTR text);

// What an object has to say of its last failure: name, description, interface, operation and scope.
struct LastFailure {
    std::string name;
    std::string description;
    std::string interfaceName;
    std::string operation;
    std::string scope;
};
LastFailure lastFailure(IUnknown *object);

// Another interface of an object; null when it has none.
template <class Interface> ComPointer<Interface> as(IUnknown *object)
{
    ComPointer<Interface> found;
    found.queryFrom(object);
    return found;
}
