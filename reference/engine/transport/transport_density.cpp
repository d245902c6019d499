#include "reference/engine/transport/transport_density.h"

namespace reference {

Dual transportDensity(const PhasePoint &point, const Direction &direction)
{
    const MixtureModel &model = point.model();
    Dual shift;
    for (int i = 0; i < model.size; ++i)
        shift.value += point.fractions()[i] * model.compounds[i].volumeShift;
    if (direction.compound >= 0)
        shift.slope = model.compounds[direction.compound].volumeShift - shift.value;
    return 1.0 / (point.bulk(direction).residual.volume - shift);
}

} // namespace reference
