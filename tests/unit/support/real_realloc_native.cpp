#include "tests/unit/support/real_realloc.h"

extern "C" void *__real_realloc(void *block, std::size_t size); // NOLINT(bugprone-reserved-identifier)

void *realRealloc(void *block, std::size_t size) { return __real_realloc(block, size); }
