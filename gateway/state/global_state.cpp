#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/host_mode.h"
#include "gateway/state/settings.h"

Settings GlobalSettings;
FloatingPointMode HostFloatingPointMode = FloatingPointMode::current();

WideString LastError;
WideString ScratchText;

std::vector<WideString> NameList;
std::vector<std::int32_t> HandleList;
std::vector<double> ConstantValues;
VariantArray ResultArray;
VariantArray NameArray;
VARIANT EmptyVariant;
