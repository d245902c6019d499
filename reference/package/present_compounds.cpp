#include "reference/package/present_compounds.h"

namespace reference {

PresentCompounds::PresentCompounds(const PhasePoint &whole) : phase(whole)
{
    std::array<int, maximumCompounds> members;
    std::size_t count = 0;
    for (int i = 0; i < phase.model().size; ++i)
        if (phase.fractions()[i] > 0.0) {
            fractions[count] = phase.fractions()[i];
            members[count++] = i;
        }
    model = phase.model().subset({members.data(), count});
}

PhasePoint PresentCompounds::point(Root root) const
{
    return {
        model, phase.temperature(), phase.pressure(), {fractions.data(), static_cast<std::size_t>(model.size)}, root};
}

} // namespace reference
