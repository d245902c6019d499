// The library in another process, the host: starts it, calls by messages, and outlives whatever a package does there.
#pragma once

#include "client/host_connection.h"
#include "client/library_side.h"
#include "client/package_handles.h"

#include <memory>
#include <optional>

class RemoteLibrary : public LibrarySide {
public:
    bool start() override;
    bool call(int outputs, const std::vector<wire::Value> &arguments) override;
    const std::vector<wire::Value> &results() const override { return values; }
    const std::string &error() const override { return words; }
    bool stopped() const override { return gaveUp; }
    const std::vector<std::string> &warnings() const override { return warned; }
    void release() override;
    void unload() override;

    void serve(const Caller &whoWaits) { caller = whoWaits; }
    void leaveToParent(); // in a copy of the process that started the host

protected:
    // `elsewhere` is why packages are lost when the user wishes another place than before, if there are several.
    explicit RemoteLibrary(const char *elsewhere = "") : otherPlace(elsewhere) {}
    ~RemoteLibrary() = default;

    struct Wishes {
        std::string place;    // where the host is to run; a host of another place is no use
        double callLimit = 0; // seconds that a call may take; 0 for as long as it takes
    };
    // What the user wishes at this moment. False with the reason in `error`.
    virtual bool readWishes(Wishes &wishes, std::string &error) = 0;

    // A host as it was wished last. Null when there is none, with the reason in `error`, which is empty when the user
    // wished to wait no longer. `warning` gets what does not hinder it.
    virtual std::unique_ptr<HostConnection> startHost(const Caller &caller, std::string &warning,
                                                      std::string &error) = 0;

private:
    bool ask(int outputs, const std::vector<wire::Value> &arguments);
    bool failed(const std::string &text);
    bool failedForMemory(int code);
    bool stop();
    bool keepWhatRuns(const Wishes &wanted);
    bool finishStopped();
    bool finish(HostConnection::Outcome outcome, int code);
    bool endStopped();
    bool lose(const std::string &reason, const std::string &text);
    bool take(int code);

    const char *otherPlace;
    Caller caller{};
    std::unique_ptr<HostConnection> host;
    Wishes wishes; // of what runs
    PackageHandles handles;
    std::string startWarning;       // for the next call
    std::optional<int> stoppedCode; // of the call that the user did not wait for and the host still works on
    std::vector<wire::Value> values;
    std::string words;
    std::vector<std::string> warned;
    bool gaveUp = false;
};
