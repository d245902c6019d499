// What the methods of the model's material share.
#pragma once

#include "fuzz/model/material.h"

namespace fuzz::model {

constexpr LPCWSTR materialObject = u"ICapeThermoMaterialObject";

struct Material::Place {
    LPCWSTR scope;
    int index = -1; // of a phase; -1: Overall
    Basis basis = Basis::none;
};

struct Material::Slot {
    Store *store = nullptr; // of the first phase
    WideString key;
};

// The name in lower case when it is one that stands for a field, else empty.
WideString ReservedName(const MaybeText &property);

WideString InvalidPhase(const MaybeText &label);

} // namespace fuzz::model
