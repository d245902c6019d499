// The process-wide settings that commands 17 and 18 write.
#pragma once

#include <cstdint>

struct Settings {
    std::int32_t chosenBasis = 0;  // 0 mole, 1 mass: of the commands that begin from now on
    std::int32_t defaultBasis = 0; // of the running command: of composition arguments and of results
    std::int32_t showWarnings = 1; // non-zero: warnings and dialogs reach the user
};

extern Settings GlobalSettings;
