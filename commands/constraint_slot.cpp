#include "commands/constraint_slot.h"

void ConstraintSlot::write(CMaterialObject &material, double value) const
{
    if (field) {
        *field = value;
        return;
    }
    PropertyValues &entry = material.overallProps.entry(property.c_str());
    if (entry.count != 1 || !entry.values) {
        entry.basis = basis;
        if (!entry.resize(1))
            return;
    }
    entry.values[0] = value;
}
