#include "platform/native/seam.h"

namespace seam {

NthCall allocations;
NthCall registryCalls;
NthCall comCalls;
HRESULT comFailure = E_OUTOFMEMORY;
int registryOpens = 0;
int openRegistryKeys = 0;
MessageBoxFunction messageBox = nullptr;

} // namespace seam
