// Answers the client's messages.
#pragma once

#include "host/value_call.h"
#include "isolation/library.h"
#include "isolation/listener.h"
#include "wire/decoder.h"
#include "wire/message_writer.h"

class Service {
public:
    explicit Service(wire::ByteSink &client) : writer(client) {}

    // The whole conversation, until the client goes or does something wrong; then the library is unloaded.
    void run(wire::ByteSource &client);

private:
    bool answer(Listener &listener);
    bool answerCall(Listener &listener);
    bool answerUnload(Listener &listener);
    bool complain(const std::string &reason);

    wire::MessageWriter writer;
    wire::Call call;
    host::ValueCall running;
    IsolatedLibrary library;
};
