#include "gateway/lifecycle.h"

#include "gateway/running_call.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/host_mode.h"
#include "gateway/state/library_module.h"
#include "packages/package_table.h"
#include "packages/relay_client.h"
#include "packages/simulation_context.h"
#include "platform/matlab/matlab.h"
#include "properties/vocabulary.h"

#include <cstdlib>

void EnsureStarted()
{
    static bool started = false;
    if (started)
        return;
    started = true;
    VariantInit(&EmptyVariant);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    std::srand(GetTickCount()); // handles differ from one run of MATLAB to the next
    mexAtExit(OnMexExit);
}

void OnMexExit()
{
    const KeepFloatingPointMode matlabMode;
    HostFloatingPointMode = FloatingPointMode::current();
    ForgetAbandonedCalls();
    ResultArray.Reset(1);
    CloseAllPackages();
    ClearPropertyTables();
    ReleaseRelay();
    CoUninitialize();
    ReleaseSimulationContext();
    ReleaseLibraryModule();
}
