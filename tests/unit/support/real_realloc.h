// The C library's realloc, in programs where the linker puts another in its place.
#pragma once

#include <cstddef>

void *realRealloc(void *block, std::size_t size);
