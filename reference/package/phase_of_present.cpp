#include "reference/package/phase_of_present.h"

namespace reference {

PhaseOfPresent::PhaseOfPresent(const PhasePoint &whole)
    : phase(whole), present({phase.fractions().data(), static_cast<std::size_t>(phase.model().size)}),
      model(phase.model().subset(present.members()))
{
}

PhasePoint PhaseOfPresent::point(Root root) const
{
    return {model, phase.temperature(), phase.pressure(),
            std::span(present.amounts).first(static_cast<std::size_t>(present.count)), root};
}

} // namespace reference
