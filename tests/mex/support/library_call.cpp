#include "tests/mex/support/library_call.h"

#include <gtest/gtest.h>

namespace support {

ImportSlot::ImportSlot(const char *name, AnyFunction system, AnyFunction replacement) : slot(find(name, system))
{
    if (!slot) {
        ADD_FAILURE() << "the library does not call " << name;
        return;
    }
    before = *slot;
    write(slot, replacement);
}

ImportSlot::ImportSlot(AnyFunction *found, AnyFunction replacement) : slot(found), before(*found)
{
    write(slot, replacement);
}

ImportSlot::~ImportSlot()
{
    if (slot)
        write(slot, before);
}

} // namespace support
