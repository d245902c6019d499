// The library in a host beside this MEX file, or where it is installed.
#pragma once

#include "client/remote_library.h"
#include "client/seconds.h"

class IsolatedSide final : public RemoteLibrary {
public:
    IsolatedSide();
    std::string description() override;

private:
    bool readWishes(Wishes &wishes, std::string &error) override;
    std::unique_ptr<HostConnection> startHost(const Caller &caller, std::string &warning, std::string &error) override;

    Limits limits;
};
