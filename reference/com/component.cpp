#include "reference/com/component.h"

#include "cape/com/com_pointer.h"
#include "cape/com/guarded_call.h"

#include <utility>

namespace reference {

namespace {

void setText(BSTR text, WideString &target) { target.assign(text ? text : OLESTR(""), SysStringLen(text)); }

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
    else if (iid == InterfaceId<IPersistStreamInit>)
        *object = static_cast<IPersistStreamInit *>(this);
    else
        *object = findErrorInterface(iid);
    if (!*object)
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

HRESULT Component::Call::report(ErrorReport error) const
{
    error.interfaceName = interfaceName;
    error.operation = operation;
    component.lastError = std::move(error);
    return component.lastError.kind.result;
}

HRESULT Component::Call::refuse(const ErrorKind &kind, WideString description, int position) const
{
    return report({.kind = kind, .description = std::move(description), .position = position});
}

HRESULT Component::Call::refuseBounds(const Bounds &bounds, int position, WideString description) const
{
    return report(
        {.kind = errors::outOfBounds, .description = std::move(description), .position = position, .bounds = bounds});
}

HRESULT Component::Call::refuseOrder(LPCWSTR requestedOperation, WideString description) const
{
    return report({.kind = errors::badInvocationOrder,
                   .description = std::move(description),
                   .requestedOperation = requestedOperation});
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
    return report({.kind = kind, .description = std::move(description), .ofOther = result});
}

} // namespace reference
