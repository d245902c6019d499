#include "platform/native/seam.h"

namespace seam {

FaultPoint allocations;
FaultPoint registryCalls;
FaultPoint comCalls;
HRESULT comFailure = E_OUTOFMEMORY;
int registryOpens = 0;
int openRegistryKeys = 0;
MessageBoxFunction messageBox = nullptr;

} // namespace seam
