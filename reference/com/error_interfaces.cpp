#include "reference/com/error_interfaces.h"

#include "cape/com/com_object.h"
#include "cape/com/guarded_call.h"
#include "reference/com/automation.h"

namespace reference {

namespace {

template <class Interface> constexpr auto entry()
{
    return interfaceEntry<ErrorInterfaces, Interface, WithoutDispatch<Interface>>();
}

constexpr InterfaceEntry<ErrorInterfaces> interfaces[] = {
    entry<ECapeRoot>(),
    entry<ECapeUser>(),
    entry<ECapeUnknown>(),
    entry<ECapeData>(),
    entry<ECapeBadArgument>(),
    entry<ECapeInvalidArgument>(),
    entry<ECapeOutOfBounds>(),
    entry<ECapeBoundaries>(),
    entry<ECapeImplementation>(),
    entry<ECapeNoImpl>(),
    entry<ECapeLimitedImpl>(),
    entry<ECapeComputation>(),
    entry<ECapeFailedInitialisation>(),
    entry<ECapeSolvingError>(),
    entry<ECapeBadInvOrder>(),
    entry<ECapeThrmPropertyNotAvailable>(),
};

HRESULT giveNumber(auto number, auto *result)
{
    if (!result)
        return E_POINTER;
    *result = number;
    return S_OK;
}

} // namespace

void *ErrorInterfaces::findErrorInterface(REFIID iid) { return ::findInterface(interfaces, iid, this); }

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_name(BSTR *name) { return giveText(lastError.kind.name, name); }

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_code(LONG *code) { return giveNumber(lastError.kind.result, code); }

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_description(BSTR *description)
{
    return giveText(lastError.description, description);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_scope(BSTR *scope)
{
    return GuardedCall([&] {
        const bool failed = FAILED(lastError.kind.result);
        const WideString path =
            failed ? WideString(OLESTR("VerdanthReference.")) + lastError.interfaceName : WideString();
        return giveText(path, scope);
    });
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_interfaceName(BSTR *name)
{
    return giveText(lastError.interfaceName, name);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_operation(BSTR *operation)
{
    return giveText(lastError.operation, operation);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_moreInfo(BSTR *information)
{
    return GuardedCall([&] {
        WideString text = lastError.kind.meaning;
        if (FAILED(lastError.ofOther))
            text += OLESTR(". The other object answered ") + hexadecimal(lastError.ofOther);
        return giveText(text, information);
    });
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_position(SHORT *position)
{
    return giveNumber(static_cast<SHORT>(lastError.position), position);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_LowerBound(double *bound)
{
    return giveNumber(lastError.bounds.lower, bound);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_UpperBound(double *bound)
{
    return giveNumber(lastError.bounds.upper, bound);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_value(double *value)
{
    return giveNumber(lastError.bounds.value, value);
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_Type(BSTR *type)
{
    return GuardedCall([&] { return giveText(wide(lastError.bounds.type), type); });
}

HRESULT STDMETHODCALLTYPE ErrorInterfaces::get_requestedOperation(BSTR *operation)
{
    return giveText(lastError.requestedOperation, operation);
}

} // namespace reference
