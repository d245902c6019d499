// The rows of the vocabulary.
#pragma once

#include "properties/vocabulary.h"

#include <span>

// All rows of one kind, in the order of the vocabulary. Static.
std::span<const PropertyInfo> PropertyRows(PropertyKind kind);
