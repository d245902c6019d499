#include "commands/phase_argument.h"

#include "gateway/call/marshalling.h"

Verdict ReadPhase(const mxArray *argument, const PhaseMessages &messages, const CMaterialObject &material, Bstr &label,
                  std::int32_t &phase)
{
    StringArg text;
    if (Verdict verdict = text.read(argument, messages.notString); !verdict.isDone())
        return verdict;
    label.assign(text.get());
    phase = material.PhaseIndex(label.get());
    return phase < 0 ? Verdict::refuse(messages.unknown) : Verdict::done();
}
