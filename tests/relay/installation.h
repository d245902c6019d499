// The 32-bit side of an installation, as the tests of both sides find it: the relay and the 32-bit reference package in
// the folder of the 32-bit build, and the processes that run from there.
#pragma once

#include "platform/platform.h"
#include "tests/support/registered_text.h"

#include <string>
#include <vector>

namespace installation {

// A file of the 32-bit or of this program's own build, with its full path.
WideString file32(LPCWSTR name);
WideString fileHere(LPCWSTR name);

// Runs a program and waits for its exit code.
DWORD run(const WideString &program, const WideString &arguments);

// The relay, registered while the object lives.
class RegisteredRelay {
public:
    RegisteredRelay();
    ~RegisteredRelay();
    RegisteredRelay(const RegisteredRelay &) = delete;
    RegisteredRelay &operator=(const RegisteredRelay &) = delete;
};

// The 32-bit reference package, registered while the object lives.
class RegisteredPackage32 {
public:
    RegisteredPackage32();
    ~RegisteredPackage32();
    RegisteredPackage32(const RegisteredPackage32 &) = delete;
    RegisteredPackage32 &operator=(const RegisteredPackage32 &) = delete;
};

// The CAPE-OPEN type library, and where its file is registered. None is made of another: programs that clang++ makes
// for Windows initialize the variables of headers in any order.
inline constexpr char standardLibrary[] = "{4A5E2E81-C093-11D4-9F1B-0010A4D198C2}";
inline const std::string standardLibraryKey = std::string("TypeLib\\") + standardLibrary;
inline const std::string standardLibraryPathKey = std::string("TypeLib\\") + standardLibrary + "\\1.1\\0\\win32";

void registerTypeLibrary(const WideString &path);

// A machine without that library while the object lives.
class WithoutStandardLibrary {
public:
    WithoutStandardLibrary();
    ~WithoutStandardLibrary();
    WithoutStandardLibrary(const WithoutStandardLibrary &) = delete;
    WithoutStandardLibrary &operator=(const WithoutStandardLibrary &) = delete;

private:
    WideString before; // the file
};

// The relays that are running, by process id.
std::vector<DWORD> relays();

// Waits until none runs any more, but not for ever: false when one stays.
bool relaysEnd();

void killRelays(); // at once, as a crash would

// Windows forgets the classes of a process that died. Wine's process that keeps them does not: it is ended, too, and
// starts anew when it is needed.
void forgetDeadServers();

using support::keyExists;
using support::registeredText;

} // namespace installation
