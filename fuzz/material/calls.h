// Calls of a material's methods, each made at the material and at its model and compared: result, values, and the words
// that explain a refusal. A difference ends the process.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "fuzz/model/material.h"

#include <memory>

namespace fuzz {

struct Client {
    const model::Package *package = nullptr; // that the material is of
    ComPointer<ICapeThermoMaterial> material;
    std::shared_ptr<model::Material> expected; // null: nothing is compared

    // What was written last, which is often read next.
    MaybeText lastProperty;
    MaybeText lastLabel;
};

// One call of a random method that reads or writes the material's state.
void CallMaterial(Input &input, Client &client);

// One of the methods that are refused, whatever they are given.
void CallRefused(Input &input, Client &client);

// The questions about compounds, phases and the material itself.
void AskMaterial(Input &input, Client &client);

// What every object of the system says of itself and of its last refusal, whatever it says.
void AskForWords(IUnknown *object);

void CopyMaterial(Client &target, IUnknown *source, const model::Material *expectedSource);

// A list from a material: of this type and length, and from 0 on.
void ExpectArray(const VARIANT &list, VARTYPE type, std::size_t count);

// Compares the result of a call, and the words of the material's error interfaces.
void Expect(const Client &client, HRESULT result, const model::Answer &answer);

} // namespace fuzz
