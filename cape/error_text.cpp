#include "cape/error_text.h"

#include "cape/com/bstr.h"
#include "cape/com/cape_open_errors.h"
#include "cape/com/com_pointer.h"

#include <memory>
#include <new>

namespace {

// The standard's results from ECapeUnknownHR upwards, each one above the one before.
constexpr LPCWSTR capeOpenTexts[] = {
    OLESTR("Failed to get error name for ECapeUnknown"), // ECapeUnknownHR
    OLESTR("invalid data"),                              // ECapeDataHR
    OLESTR("license problem"),                           // ECapeLicenceErrorHR
    OLESTR("Bad Cape-Open parameter"),                   // ECapeBadCOParameterHR
    OLESTR("Bad argument"),                              // ECapeBadArgumentHR
    OLESTR("Invalid argument"),                          // ECapeInvalidArgumentHR
    OLESTR("index out of bounds"),                       // ECapeOutOfBoundsHR
    OLESTR("current implementation related error"),      // ECapeImplementationHR
    OLESTR("not implemented"),                           // ECapeNoImplHR
    OLESTR("implementation is limited"),                 // ECapeLimitedImplHR
    OLESTR("computation error"),                         // ECapeComputationHR
    OLESTR("out of resources"),                          // ECapeOutOfResourcesHR
    OLESTR("out of memory"),                             // ECapeNoMemoryHR
    OLESTR("operation was timed out"),                   // ECapeTimeOutHR
    OLESTR("initialization error"),                      // ECapeFailedInitialisationHR
    OLESTR("solution error"),                            // ECapeSolvingErrorHR
    OLESTR("invalid order of invocations"),              // ECapeBadInvOrderHR
    OLESTR("invalid operation"),                         // ECapeInvalidOperationHR
    OLESTR("storage / persistence error"),               // ECapePersistenceHR
    OLESTR("illegal access"),                            // ECapeIllegalAccessHR
    OLESTR("persistence error: not found"),              // ECapePersistenceNotFoundHR
    OLESTR("persistence system error"),                  // ECapePersistenceSystemErrorHR
    OLESTR("persistence overflow error"),                // ECapePersistenceOverflowHR
    OLESTR("solver scope error"),                        // ECapeOutsideSolverScopeHR
    OLESTR("Hessian information not available"),         // ECapeHessianInfoNotAvailableHR
    // ECapeThrmPropertyNotAvailableHR
    OLESTR("One or more of the requested thermodynamic properties are not set on the material"),
};
static_assert(std::size(capeOpenTexts) == ECapeThrmPropertyNotAvailableHR - ECapeUnknownHR + 1);

// A text is what counts, not the result: some packages give words and a failure.
template <class Interface>
bool ask(IUnknown *object, HRESULT (STDMETHODCALLTYPE Interface::*question)(BSTR *), WideString &answer)
{
    ComPointer<Interface> errors;
    if (FAILED(errors.queryFrom(object)))
        return false;
    Bstr text;
    CallComponent([&] { return (errors.get()->*question)(text.out()); });
    if (!text.get() || *text.get() == 0)
        return false;
    answer = text.get();
    return true;
}

} // namespace

WideString CapeErrorText(IUnknown *object, HRESULT hr)
{
    if (hr < ECapeUnknownHR || hr > ECapeThrmPropertyNotAvailableHR)
        return HResultText(hr);
    WideString text;
    if (ask<ECapeUser>(object, &ECapeUser::get_description, text) || ask<ECapeRoot>(object, &ECapeRoot::get_name, text))
        return text;
    return capeOpenTexts[hr - ECapeUnknownHR];
}

WideString HResultText(HRESULT hr)
{
    constexpr DWORD capacity = 1024;
    constexpr DWORD neutralLanguage = 0x400;
    const std::unique_ptr<WCHAR[]> buffer(new (std::nothrow) WCHAR[capacity]);
    if (!buffer)
        return OLESTR("<out of memory>");
    buffer[0] = 0;
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(hr), neutralLanguage, buffer.get(), capacity, nullptr);
    if (length == 0) {
        DWORD_PTR inserts[] = {static_cast<DWORD>(hr)};
        length =
            FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY, OLESTR("error code 0x%1!08X!"),
                           0, 0, buffer.get(), capacity, reinterpret_cast<MessageInserts *>(inserts));
    }
    WideString text(buffer.get(), length);
    if (text.ends_with(OLESTR('\n'))) {
        text.pop_back();
        if (text.ends_with(OLESTR('\r')))
            text.pop_back();
    }
    return text.empty() ? WideString(OLESTR("<unknown error>")) : text;
}
