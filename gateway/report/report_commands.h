// The bodies of the gateway's own commands.
#pragma once

#include "gateway/call/command.h"

Verdict ListManagersCommand(const CommandCall &call); // 1
Verdict ListPackagesCommand(const CommandCall &call); // 2: manager name
Verdict CreateCommand(const CommandCall &call);       // 3: manager name, package name
Verdict ReleaseCommand(const CommandCall &call);      // 4: handle

Verdict ListHandlesCommand(const CommandCall &call);  // 5
Verdict PackageNameCommand(const CommandCall &call);  // 6: handle
Verdict CompoundIdsCommand(const CommandCall &call);  // 7: handle
Verdict PhaseLabelsCommand(const CommandCall &call);  // 8: handle
Verdict PhaseStateCommand(const CommandCall &call);   // 9: handle, phase label
Verdict PropertyListCommand(const CommandCall &call); // 10 to 15: handle
Verdict ConstantCommand(const CommandCall &call);     // 16: handle, property name

Verdict SetWarningsCommand(const CommandCall &call);  // 17: flag
Verdict SetBasisCommand(const CommandCall &call);     // 18: "mole" or "mass"
Verdict PropertyUnitCommand(const CommandCall &call); // 19: property name
Verdict VersionCommand(const CommandCall &call);      // 26
Verdict HelpCommand(const CommandCall &call);         // 28
