// What the viewer of the tests was asked for last, and whether it refuses to show anything.
#pragma once

#include "platform/platform.h"

struct HelpRequest {
    bool refuses;
    int count;
    char path[1024];
    UINT command;
    bool hasOwner;
    bool hasData;
};
