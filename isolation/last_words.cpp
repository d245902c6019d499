// A process that crashes has little left to work with: nothing here allocates, and texts are put together in a buffer
// that was there before.
#include "isolation/last_words.h"

#include "wire/format.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

constexpr DWORD cppOfMicrosoft = 0xE06D7363;
constexpr DWORD cppOfGnu = 0x20474343;
constexpr ULONG filterStack = 65536; // for what runs after the stack has overflowed
constexpr DWORD patienceMilliseconds = 1000;
constexpr std::size_t longestName = 768; // of a file, in UTF-8: three bytes for each of 255 units

struct CodeWords {
    DWORD code;
    const char *words;
};
constexpr CodeWords codes[] = {
    {EXCEPTION_ACCESS_VIOLATION, "access violation"},
    {EXCEPTION_IN_PAGE_ERROR, "access violation"},
    {EXCEPTION_STACK_OVERFLOW, "stack overflow"},
    {EXCEPTION_ILLEGAL_INSTRUCTION, "illegal instruction"},
    {EXCEPTION_PRIV_INSTRUCTION, "illegal instruction"},
    {EXCEPTION_BREAKPOINT, "breakpoint"},
    {EXCEPTION_INT_DIVIDE_BY_ZERO, "integer division by zero"},
    {EXCEPTION_INT_OVERFLOW, "integer overflow"},
    {EXCEPTION_FLT_DIVIDE_BY_ZERO, "floating-point exception"},
    {EXCEPTION_FLT_INVALID_OPERATION, "floating-point exception"},
    {EXCEPTION_FLT_OVERFLOW, "floating-point exception"},
    {EXCEPTION_FLT_UNDERFLOW, "floating-point exception"},
    {EXCEPTION_FLT_INEXACT_RESULT, "floating-point exception"},
    {STATUS_HEAP_CORRUPTION, "damaged heap"},
    {cppOfMicrosoft, "uncaught C++ exception"},
    {cppOfGnu, "uncaught C++ exception"},
};

HANDLE out = nullptr;
std::atomic<int> messagesBeingWritten = 0;
std::atomic_flag begun;
std::atomic<bool> said = false;

struct Message {
    wire::FrameHeader header;
    std::uint64_t length;
    char words[longestName + 64];
} message;

template <class Condition> bool waitUntil(Condition holds)
{
    for (DWORD waited = 0; !holds(); ++waited) {
        if (waited == patienceMilliseconds)
            return false;
        Sleep(1);
    }
    return true;
}

// Once. A second thread that crashes meanwhile must not end the process before the first has spoken.
bool mayBegin()
{
    if (!begun.test_and_set())
        return true;
    waitUntil([] { return said.load(); });
    return false;
}

void say(const char *words, const char *place)
{
    if (*place)
        std::snprintf(message.words, sizeof message.words, "%s in %s", words, place);
    else
        std::snprintf(message.words, sizeof message.words, "%s", words);
    message.length = std::strlen(message.words);
    const std::uint64_t padded = wire::Padded(message.length);
    std::memset(message.words + message.length, 0, padded - message.length);
    message.header = {wire::Kind::LastWords, 0, sizeof message.length + padded};
    // In the middle of another message they would be taken for a part of it.
    DWORD written = 0;
    if (waitUntil([] { return messagesBeingWritten == 0; }))
        WriteFile(out, &message, static_cast<DWORD>(sizeof message.header + message.header.length), &written, nullptr);
    said = true;
}

// The file name of the module in which the address lies; empty when it is in none.
bool nameModule(const void *address, char (&name)[longestName])
{
    name[0] = '\0';
    HMODULE module = nullptr;
    static WCHAR path[1024];
    constexpr DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!address || !GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &module) ||
        !GetModuleFileNameW(module, path, 1024))
        return false;
    const WCHAR *file = path;
    for (const WCHAR *at = path; *at; ++at)
        if (*at == L'\\' || *at == L'/')
            file = at + 1;
    WideCharToMultiByte(CP_UTF8, 0, file, -1, name, sizeof name, nullptr, nullptr);
    return true;
}

const char *wordsFor(DWORD code)
{
    for (const CodeWords &each : codes)
        if (each.code == code)
            return each.words;
    static char other[32];
    std::snprintf(other, sizeof other, "exception 0x%08lX", code);
    return other;
}

void tellOf(const EXCEPTION_POINTERS &exception)
{
    const EXCEPTION_RECORD &record = *exception.ExceptionRecord;
    static char name[longestName];
    const bool isCpp = record.ExceptionCode == cppOfMicrosoft || record.ExceptionCode == cppOfGnu;
    // Exceptions of C++ are raised by a function of the system. Microsoft's name the module that threw.
    const void *address = record.ExceptionAddress;
    if (isCpp)
        address =
            record.NumberParameters > 3 ? reinterpret_cast<const void *>(record.ExceptionInformation[3]) : nullptr;
    // Who calls what is not there has left where it came from on the stack.
    if (!nameModule(address, name) && !isCpp && exception.ContextRecord->Rip == 0)
        nameModule(*reinterpret_cast<const void *const *>(exception.ContextRecord->Rsp), name);
    say(wordsFor(record.ExceptionCode), name);
}

LONG WINAPI crashed(EXCEPTION_POINTERS *exception)
{
    if (mayBegin())
        tellOf(*exception);
    TerminateProcess(GetCurrentProcess(), exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

void aborted(int)
{
    if (mayBegin())
        say("abort was called", "");
    TerminateProcess(GetCurrentProcess(), 3);
}

// Called when the thread that has a value in the slot ends the process in an orderly way, or is ended with it. Our own
// way is without.
void NTAPI processEnds(void *)
{
    if (mayBegin())
        say("exit was called", "");
}

} // namespace

void ArrangeLastWords(HANDLE client)
{
    out = client;
    ULONG size = filterStack;
    SetThreadStackGuarantee(&size);
    std::signal(SIGABRT, aborted);
    FlsSetValue(FlsAlloc(processEnds), out);
    RenewLastWords();
}

void RenewLastWords() { SetUnhandledExceptionFilter(crashed); }

WritingMessage::WritingMessage() { ++messagesBeingWritten; }

WritingMessage::~WritingMessage() { --messagesBeingWritten; }
