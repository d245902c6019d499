#include "client/matlab/host_pipes.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr DWORD pipeSize = 1 << 20;
constexpr std::size_t largestPart = std::size_t{1} << 30; // of what one call of the system moves
constexpr DWORD patienceMilliseconds = 10000;             // with a process that is ended by force
constexpr DWORD tickMilliseconds = 50;                    // so often it is asked whether anybody waits on
constexpr UINT endedByForce = 1;

void closeHandle(HANDLE &handle)
{
    if (handle)
        CloseHandle(handle);
    handle = nullptr;
}

// The end of the process; nobody else can open the name, which one alone may and one has.
HANDLE openTheirs(const WideString &name, DWORD access)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE opened = CreateFileW(name.c_str(), access, 0, &inherited, OPEN_EXISTING, 0, nullptr);
    return opened == INVALID_HANDLE_VALUE ? nullptr : opened;
}

// A pipe with a name, because at those without one nobody can wait for a limited time.
bool makePipe(DWORD direction, HANDLE &ours, HANDLE &theirs)
{
    static unsigned count = 0;
    LARGE_INTEGER now = {};
    QueryPerformanceCounter(&now);
    const WideString name = L"\\\\.\\pipe\\verdanth-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                            std::to_wstring(++count) + L"-" + std::to_wstring(now.QuadPart);
    HANDLE made =
        CreateNamedPipeW(name.c_str(), direction | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
                         PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, pipeSize, pipeSize, 0, nullptr);
    if (made == INVALID_HANDLE_VALUE)
        return false;
    ours = made;
    theirs = openTheirs(name, direction == PIPE_ACCESS_INBOUND ? GENERIC_WRITE : GENERIC_READ);
    return theirs != nullptr;
}

// The one list of handles that a process is to inherit; others that are open at this moment stay here.
class InheritedHandles {
public:
    explicit InheritedHandles(HANDLE (&handles)[3])
    {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory = std::make_unique<char[]>(size);
        made = InitializeProcThreadAttributeList(list(), 1, 0, &size) &&
               UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles, sizeof handles, nullptr,
                                         nullptr);
    }
    InheritedHandles(const InheritedHandles &) = delete;
    InheritedHandles &operator=(const InheritedHandles &) = delete;
    ~InheritedHandles()
    {
        if (made)
            DeleteProcThreadAttributeList(list());
    }
    explicit operator bool() const { return made; }
    LPPROC_THREAD_ATTRIBUTE_LIST list() const { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory.get()); }

private:
    std::unique_ptr<char[]> memory;
    bool made = false;
};

// Whoever is in it ends with the last handle to it, so with this process, whatever way that goes. What the host starts
// serves others, too, and is not in it.
HANDLE makeJob()
{
    HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
    if (job)
        SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

} // namespace

HostPipes::~HostPipes()
{
    close();
    closeHandle(process);
    closeHandle(job);
    closeHandle(reading.hEvent);
    closeHandle(writing.hEvent);
}

bool HostPipes::start(const WideString &program, std::string &error)
{
    HANDLE theirs[3] = {}; // standard input, output, error output
    reading.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    writing.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const bool started = reading.hEvent && writing.hEvent && makePipe(PIPE_ACCESS_OUTBOUND, input, theirs[0]) &&
                         makePipe(PIPE_ACCESS_INBOUND, output, theirs[1]) &&
                         (theirs[2] = openTheirs(L"NUL", GENERIC_WRITE)) && launch(program, theirs);
    if (!started)
        error = "error " + std::to_string(GetLastError());
    for (HANDLE &handle : theirs)
        closeHandle(handle);
    if (!started)
        close();
    return started;
}

bool HostPipes::launch(const WideString &program, HANDLE (&streams)[3])
{
    const InheritedHandles inherited(streams);
    if (!inherited)
        return false;
    STARTUPINFOEXW startup = {};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = streams[0];
    startup.StartupInfo.hStdOutput = streams[1];
    startup.StartupInfo.hStdError = streams[2];
    startup.lpAttributeList = inherited.list();
    constexpr DWORD flags =
        CREATE_SUSPENDED | CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT;
    WideString commandLine = L"\"" + program + L"\"";
    PROCESS_INFORMATION made = {};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr,
                        &startup.StartupInfo, &made))
        return false;
    process = made.hProcess;
    job = makeJob();
    if (job)
        AssignProcessToJobObject(job, process);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return true;
}

bool HostPipes::readable(int milliseconds)
{
    if (aheadBegin < aheadEnd || atEnd)
        return true;
    if (!isReading)
        beginToRead(ahead, sizeof ahead);
    if (isReading && !HasOverlappedIoCompleted(&reading) &&
        WaitForSingleObject(reading.hEvent, static_cast<DWORD>(milliseconds)) == WAIT_TIMEOUT)
        return false;
    aheadBegin = 0;
    aheadEnd = finishReading();
    return true;
}

void HostPipes::beginToRead(void *bytes, std::size_t capacity)
{
    const auto part = static_cast<DWORD>(std::min(capacity, largestPart));
    isReading = ReadFile(output, bytes, part, nullptr, &reading) || GetLastError() == ERROR_IO_PENDING;
    atEnd = !isReading;
}

// How many bytes came, 0 at the end. It waits for them.
std::size_t HostPipes::finishReading()
{
    DWORD count = 0;
    atEnd = !isReading || !GetOverlappedResult(output, &reading, &count, TRUE) || count == 0;
    isReading = false;
    return count;
}

std::size_t HostPipes::read(void *bytes, std::size_t capacity, const WaitsOn &waitsOn)
{
    // Much goes where it is wanted, without a detour.
    if (capacity >= sizeof ahead && aheadBegin == aheadEnd && !isReading && !atEnd) {
        beginToRead(bytes, capacity);
        if (isReading && !waitFor(reading, waitsOn))
            CancelIoEx(output, &reading);
        return finishReading();
    }
    while (!readable(tickMilliseconds))
        if (!waitsOn() || (!runs() && !readable(0)))
            return 0;
    const std::size_t count = std::min(capacity, aheadEnd - aheadBegin);
    std::memcpy(bytes, ahead + aheadBegin, count);
    aheadBegin += count;
    return count;
}

// Until it is done; false when nobody waits on, or the process has ended.
bool HostPipes::waitFor(const OVERLAPPED &transfer, const WaitsOn &waitsOn) const
{
    if (HasOverlappedIoCompleted(&transfer))
        return true;
    const HANDLE either[] = {transfer.hEvent, process};
    DWORD came = WAIT_TIMEOUT;
    do
        came = WaitForMultipleObjects(2, either, FALSE, tickMilliseconds);
    while (came == WAIT_TIMEOUT && waitsOn());
    return came == WAIT_OBJECT_0;
}

bool HostPipes::write(const void *bytes, std::size_t count, const WaitsOn &waitsOn)
{
    const auto *next = static_cast<const char *>(bytes);
    while (count > 0) {
        // What the pipe holds: while the other side reads one part, the next is written.
        const auto part = static_cast<DWORD>(std::min<std::size_t>(count, pipeSize));
        if (!WriteFile(input, next, part, nullptr, &writing)) {
            if (GetLastError() != ERROR_IO_PENDING)
                return false;
            if (!waitFor(writing, waitsOn))
                CancelIoEx(input, &writing);
        }
        DWORD written = 0;
        if (!GetOverlappedResult(input, &writing, &written, TRUE) || written == 0)
            return false;
        next += written;
        count -= written;
    }
    return true;
}

bool HostPipes::runs() { return process && WaitForSingleObject(process, 0) == WAIT_TIMEOUT; }

void HostPipes::kill()
{
    if (!runs())
        return;
    TerminateProcess(process, endedByForce);
    WaitForSingleObject(process, patienceMilliseconds);
}

std::string HostPipes::howItEnded() const
{
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    char text[40]; // what crashes ends with a number that Windows gives in the other form
    std::snprintf(text, sizeof text, code < 0x80000000 ? "exit code %lu" : "exit code 0x%08lX", code);
    return text;
}

void HostPipes::close()
{
    if (isReading) {
        DWORD count = 0;
        CancelIoEx(output, &reading);
        GetOverlappedResult(output, &reading, &count, TRUE);
    }
    isReading = false;
    atEnd = true;
    closeHandle(input);
    closeHandle(output);
}
