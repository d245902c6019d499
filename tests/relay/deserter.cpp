// A client that has the relay make an object, and ends without releasing anything: deserter exit|die CLASSID. Its exit
// code is 7 when it came so far.
#include "cape/com/relay_interface.h"

#include <string_view>

int main(int count, char **arguments)
{
    if (count != 3)
        return 1;
    const std::string_view end = arguments[1];
    const std::string_view classId = arguments[2];
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IVerdanth6432Relay *relay = nullptr;
    if (FAILED(CoCreateInstance(CLSID_Verdanth6432Relay, nullptr, CLSCTX_LOCAL_SERVER, InterfaceId<IVerdanth6432Relay>,
                                reinterpret_cast<void **>(&relay))))
        return 2;
    IUnknown *object = nullptr;
    BSTR text = SysAllocString(WideString(classId.begin(), classId.end()).c_str());
    const HRESULT hr = relay->CreateObject32(text, &object);
    SysFreeString(text);
    if (FAILED(hr))
        return 3;
    if (end == "die")
        TerminateProcess(GetCurrentProcess(), 7);
    ExitProcess(7);
}
