// What the client that is found on the path says of the library and of where that runs.
#include "demo/session.h"

#include <cstdio>

int main()
{
    host::Library client(mexLEAVE_UNWIND, OLESTR("VerdanthClient.mexw64"));
    if (!client.loaded())
        return 1;
    for (const host::Array &question : {host::Scalar(26), host::Text("back end")}) {
        const host::CallResult answer = client.call(1, {question});
        std::printf("%s\n", answer.returned ? Printable(answer[0].text()).c_str() : answer.error.c_str());
    }
}
