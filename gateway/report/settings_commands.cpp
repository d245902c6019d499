// Commands 17 and 18: the settings.
#include "cape/same_name.h"
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/settings.h"

Verdict SetWarningsCommand(const CommandCall &call)
{
    GlobalSettings.showWarnings = ScalarOf(call.arguments[1]) != 0 ? 1 : 0; // a NaN is not zero
    return Verdict::done();
}

Verdict SetBasisCommand(const CommandCall &call)
{
    constexpr const char *refusal = "Expected string value 'mole' or 'mass' as argument";
    StringArg basis;
    if (Verdict verdict = basis.read(call.arguments[1], refusal); !verdict.isDone())
        return verdict;
    if (SameName(basis.get(), OLESTR("Mole")))
        GlobalSettings.chosenBasis = 0;
    else if (SameName(basis.get(), OLESTR("Mass")))
        GlobalSettings.chosenBasis = 1;
    else
        return Verdict::refuse(refusal);
    return Verdict::done();
}
