#include "reference/com/component.h"

#include "cape/com/com_pointer.h"
#include "cape/com/guarded_call.h"

#include <utility>

namespace reference {

namespace {

HRESULT giveText(const WideString &text, BSTR *result)
{
    if (!result)
        return E_POINTER;
    *result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
}

void setText(BSTR text, WideString &target) { target.assign(text ? text : OLESTR(""), SysStringLen(text)); }

WideString hexadecimal(HRESULT result)
{
    WideString digits = OLESTR("0x");
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += OLESTR("0123456789ABCDEF")[(static_cast<std::uint32_t>(result) >> shift) & 0xF];
    return digits;
}

} // namespace

std::atomic<LONG> libraryUses{0};

Component::Component(const ComponentDescription &description)
    : classId(*description.classId), componentName(description.name.begin(), description.name.end()),
      componentDescription(description.description.begin(), description.description.end())
{
    ++libraryUses;
}

Component::~Component() { --libraryUses; }

HRESULT STDMETHODCALLTYPE Component::QueryInterface(REFIID iid, void **object)
{
    if (!object)
        return E_POINTER;
    if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeIdentification>)
        *object = static_cast<ICapeIdentification *>(this);
    else if (iid == InterfaceId<ICapeUtilities>)
        *object = static_cast<ICapeUtilities *>(this);
    else if (iid == InterfaceId<ECapeRoot>)
        *object = static_cast<ECapeRoot *>(this);
    else if (iid == InterfaceId<ECapeUser>)
        *object = static_cast<ECapeUser *>(this);
    else if (iid == InterfaceId<ECapeUnknown>)
        *object = static_cast<ECapeUnknown *>(this);
    else if (iid == InterfaceId<IPersistStreamInit>)
        *object = static_cast<IPersistStreamInit *>(this);
    else
        *object = findInterface(iid);
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE Component::Release()
{
    const ULONG left = --references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT STDMETHODCALLTYPE Component::get_ComponentName(BSTR *name) { return giveText(componentName, name); }

HRESULT STDMETHODCALLTYPE Component::put_ComponentName(BSTR name)
{
    return GuardedCall([&]() -> HRESULT {
        setText(name, componentName);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE Component::get_ComponentDescription(BSTR *description)
{
    return giveText(componentDescription, description);
}

HRESULT STDMETHODCALLTYPE Component::put_ComponentDescription(BSTR description)
{
    return GuardedCall([&]() -> HRESULT {
        setText(description, componentDescription);
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE Component::get_parameters(IDispatch **parameters)
{
    const Call call{*this, OLESTR("ICapeUtilities"), OLESTR("get_parameters")};
    return GuardedCall([&]() -> HRESULT {
        if (!parameters)
            return E_POINTER;
        *parameters = nullptr;
        return call.refuse(errors::noImplementation, OLESTR("There are no parameters"));
    });
}

HRESULT STDMETHODCALLTYPE Component::put_simulationContext(IDispatch *) { return S_OK; }
HRESULT STDMETHODCALLTYPE Component::Initialize() { return S_OK; }
HRESULT STDMETHODCALLTYPE Component::Terminate() { return S_OK; }

HRESULT STDMETHODCALLTYPE Component::Edit()
{
    const Call call{*this, OLESTR("ICapeUtilities"), OLESTR("Edit")};
    return GuardedCall(
        [&]() -> HRESULT { return call.refuse(errors::noImplementation, OLESTR("There is nothing to edit")); });
}

HRESULT STDMETHODCALLTYPE Component::get_name(BSTR *name) { return giveText(lastError.name, name); }

HRESULT STDMETHODCALLTYPE Component::get_code(LONG *code)
{
    if (!code)
        return E_POINTER;
    *code = lastError.result;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Component::get_description(BSTR *description)
{
    return giveText(lastDescription, description);
}

HRESULT STDMETHODCALLTYPE Component::get_scope(BSTR *scope)
{
    return GuardedCall([&]() -> HRESULT {
        const WideString path =
            *lastOperation ? WideString(OLESTR("VerdanthReference.")) + lastInterface : WideString();
        return giveText(path, scope);
    });
}

HRESULT STDMETHODCALLTYPE Component::get_interfaceName(BSTR *name) { return giveText(lastInterface, name); }
HRESULT STDMETHODCALLTYPE Component::get_operation(BSTR *operation) { return giveText(lastOperation, operation); }
HRESULT STDMETHODCALLTYPE Component::get_moreInfo(BSTR *information) { return giveText(WideString(), information); }

HRESULT STDMETHODCALLTYPE Component::GetClassID(CLSID *result)
{
    if (!result)
        return E_POINTER;
    *result = classId;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Component::IsDirty() { return S_FALSE; }
HRESULT STDMETHODCALLTYPE Component::Load(IStream *) { return S_OK; }
HRESULT STDMETHODCALLTYPE Component::Save(IStream *, BOOL) { return S_OK; }

HRESULT STDMETHODCALLTYPE Component::GetSizeMax(ULARGE_INTEGER *size)
{
    if (!size)
        return E_POINTER;
    size->QuadPart = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Component::InitNew() { return S_OK; }

HRESULT Component::Call::refuse(const ErrorKind &kind, WideString description) const
{
    component.lastError = kind;
    component.lastDescription = std::move(description);
    component.lastInterface = interfaceName;
    component.lastOperation = operation;
    return kind.result;
}

HRESULT Component::Call::refuseFor(const ErrorKind &kind, LPCWSTR what, IUnknown *called, HRESULT result) const
{
    WideString description = what;
    ComPointer<ECapeUser> user;
    Bstr words;
    if (SUCCEEDED(user.queryFrom(called)) && SUCCEEDED(user->get_description(words.out())) &&
        SysStringLen(words.get()) > 0)
        description.append(words.get(), SysStringLen(words.get()));
    else
        description += hexadecimal(result);
    return refuse(kind, std::move(description));
}

} // namespace reference
