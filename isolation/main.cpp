// VerdanthHost64: plays MATLAB for the library and serves the calls of another process, its client, which it hears by
// standard input and answers by standard output. docs/pages/host.md has the messages.
//
// It shows no window. The exit code is 0 when the conversation came to its end.
#include "isolation/last_words.h"
#include "isolation/service.h"
#include "isolation/streams.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    // A package that crashes is reported to the client, not to a user who may not be there.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    ClientStreams streams;
    if (!TakeClientStreams(streams))
        return ERROR_INVALID_HANDLE;
    ArrangeLastWords(streams.out);
    PipeSource source(streams.in);
    PipeSink sink(streams.out);
    Service(sink).run(source);
    // The listening thread may still wait for the client, so nothing is torn down.
    TerminateProcess(GetCurrentProcess(), ERROR_SUCCESS);
    return ERROR_SUCCESS;
}
