#include "platform/native/modules.h"
#include "platform/native/case_folding.h"
#include "platform/native/encoding.h"
#include "platform/native/paths.h"
#include "platform/native/text.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <link.h>
#include <string>

namespace {

namespace fs = std::filesystem;

// The native file that a name means: slashes, and .so for the extensions that Windows libraries
// have. A bare name means a file beside the platform library.
std::string nativePath(std::string name)
{
    fs::path path = native::withSlashes(std::move(name));
    const std::u16string extension = native::toUtf16(path.extension().string());
    for (const std::u16string_view windows : {u".dll", u".mexw64", u".ocx"})
        if (native::compareFolded(extension, windows) == 0)
            path.replace_extension(".so");
    if (!path.has_parent_path())
        path = fs::path(native::platformFolder()) / path;
    return path.string();
}

// The path of a loaded library, or of the program for null.
std::string modulePath(HMODULE module)
{
    std::error_code error;
    if (!module)
        return fs::read_symlink("/proc/self/exe", error).string();
    link_map *map = nullptr;
    if (dlinfo(module, RTLD_DI_LINKMAP, &map) != 0)
        return {};
    return fs::absolute(map->l_name, error).lexically_normal().string();
}

// Writes a path, cut to the capacity and with an error if it is longer, and gives its length.
template <class Character> DWORD deliver(const std::basic_string<Character> &path, Character *target, DWORD capacity)
{
    if (path.empty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const auto length = static_cast<DWORD>(path.size());
    if (capacity == 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    const DWORD written = std::min(length, capacity - 1);
    std::copy_n(path.data(), written, target);
    target[written] = 0;
    if (written == length)
        return length;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return capacity;
}

} // namespace

HMODULE LoadLibraryA(LPCSTR name)
{
    void *module = name && *name ? dlopen(nativePath(name).c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (!module)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return static_cast<HMODULE>(module);
}

HMODULE LoadLibraryW(LPCWSTR name) { return LoadLibraryA(name ? native::toUtf8(name).c_str() : nullptr); }

BOOL FreeLibrary(HMODULE module)
{
    if (module && dlclose(module) == 0)
        return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    constexpr std::uintptr_t firstPointer = 0x10000;
    const auto ordinal = reinterpret_cast<std::uintptr_t>(name);
    const std::string symbol = ordinal < firstPointer ? "ordinal_" + std::to_string(ordinal) : name;
    void *address = dlsym(module, symbol.c_str());
    if (!address)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD capacity)
{
    return deliver(native::withBackslashes(modulePath(module)), path, capacity);
}

DWORD GetModuleFileNameW(HMODULE module, LPWSTR path, DWORD capacity)
{
    return deliver(native::toUtf16(native::withBackslashes(modulePath(module))), path, capacity);
}

BOOL GetFileVersionInfoW(LPCWSTR path, DWORD, DWORD size, LPVOID block)
{
    const HMODULE module = LoadLibraryW(path); // before the block is written, which may hold the path
    if (!module) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return FALSE;
    }
    const void *resource = dlsym(module, "VersionResource");
    const bool fits = resource && size >= sizeof(VS_FIXEDFILEINFO);
    if (fits)
        std::memcpy(block, resource, sizeof(VS_FIXEDFILEINFO));
    else
        SetLastError(resource ? ERROR_INSUFFICIENT_BUFFER : ERROR_RESOURCE_DATA_NOT_FOUND);
    FreeLibrary(module);
    return fits;
}

BOOL VerQueryValueW(LPCVOID block, LPCWSTR subBlock, LPVOID *value, UINT *size)
{
    constexpr DWORD signature = 0xFEEF04BD;
    DWORD found = 0;
    std::memcpy(&found, block, sizeof found);
    if (found != signature || lstrcmpW(subBlock, u"\\") != 0) {
        SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
        return FALSE;
    }
    *value = const_cast<void *>(block);
    *size = sizeof(VS_FIXEDFILEINFO);
    return TRUE;
}
