// Registers type libraries: register_type_libraries FILE...
#include "platform/platform.h"

#include <cstdio>
#include <string_view>

int main(int count, char **arguments)
{
    int status = 0;
    for (int i = 1; i < count; ++i) {
        const std::string_view path = arguments[i]; // ASCII
        ITypeLib *library = nullptr;
        const HRESULT result = LoadTypeLibEx(WideString(path.begin(), path.end()).c_str(), REGKIND_REGISTER, &library);
        if (library)
            library->Release();
        if (FAILED(result)) {
            std::fprintf(stderr, "register_type_libraries: %s: 0x%08lX\n", arguments[i],
                         static_cast<unsigned long>(result));
            status = 1;
        }
    }
    return status;
}
