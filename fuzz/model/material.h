// What a material must hold and answer, in plain code: each method as the package calls it, and beside the answer the
// words by which it explains a refusal.
#pragma once

#include "fuzz/model/bases.h"
#include "fuzz/model/names.h"
#include "fuzz/support/list_argument.h"

#include <map>

namespace fuzz::model {

struct Package {
    std::vector<WideString> compounds;
    Numbers weights; // g/mol
    std::vector<WideString> labels;
    std::vector<WideString> states; // of aggregation
    bool isClosed = false;          // a material that is kept beyond that refuses all that needs the package
};

struct Entry {
    Numbers values;
    bool perMass = false;
};

using Store = std::map<WideString, Entry>; // by lower-case name

struct ErrorWords {
    WideString name, description, interfaceName, scope;
};

struct Answer {
    HRESULT result = S_OK;
    Numbers values = {};

    bool isRefused() const { return result != S_OK; }
};

class Material {
public:
    explicit Material(const Package &itsPackage);

    Answer clear();
    Answer copyFrom(const Material *source); // null for what is no material of this library

    Answer getOverall(const MaybeText &property, const MaybeText &basis);
    Answer getPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basis);
    Answer getTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis);
    Answer getOverallConditions(); // temperature, pressure, mole fractions
    Answer getPhaseConditions(const MaybeText &label);
    Answer getPresent(std::vector<WideString> &labels);

    Answer setOverall(const MaybeText &property, const MaybeText &basis, const ListAccount &values);
    Answer setPhase(const MaybeText &property, const MaybeText &label, const MaybeText &basis,
                    const ListAccount &values);
    Answer setTwoPhase(const MaybeText &property, const ListAccount &labels, const MaybeText &basis,
                       const ListAccount &values);
    Answer setPresent(const ListAccount &labels);

    // True, and the refusal noted, when the package is closed.
    bool isClosed(LPCWSTR interfaceName, LPCWSTR scope, Answer &refusal);

    // A refusal: notes the words, gives the result.
    Answer refuse(const WideString &name, const WideString &description, LPCWSTR interfaceName, LPCWSTR scope);

    int phaseIndex(const MaybeText &label) const; // -1 for none
    std::size_t compoundCount() const { return package->compounds.size(); }

    const Package *package;
    double temperature;
    double pressure;
    Phase overall; // its composition alone
    std::vector<Phase> phases;
    Store overallStore;
    std::vector<Store> stores; // of the phases; two-phase values lie with the first
    ErrorWords words;

private:
    enum class Basis { none, mass, mole };

    struct Place; // what is read or written, and how refusals name the method
    struct Slot;  // where the values of two phases are kept

    void forget();

    // How methods begin; a refusal ends them.
    Answer begin(Place &place, const MaybeText &basis);
    Answer beginPhase(Place &place, const MaybeText &label, const MaybeText &basis);
    Answer beginPresentPhase(Place &place, const MaybeText &label, const MaybeText &basis);
    Answer beginReserved(const Place &place, const WideString &lowerName);
    Answer beginTwoPhase(LPCWSTR scope, const MaybeText &property, const ListAccount &labels, Slot &slot);

    Answer read(const Place &place, const MaybeText &property);
    Answer readReserved(const Place &place, const WideString &lowerName);
    Answer readStored(const Place &place, const MaybeText &property);
    Answer readFractions(const Place &place, bool perMass);
    Answer readPhaseFraction(const Place &place);
    Answer readConditions(const Place &place, LPCWSTR conditionScope);
    Answer write(const Place &place, const MaybeText &property, const ListAccount &list);
    Answer writeReserved(const Place &place, const WideString &lowerName, const Numbers &values);
    Answer writeFractions(const Place &place, const Numbers &values);
    Answer writePhaseFraction(const Place &place, const Numbers &values);
    Answer writeScalar(const Place &place, const WideString &name, const Numbers &values, double &target);
    Answer writeStored(const Place &place, const MaybeText &property, const Numbers &values);

    // A refusal of a method that reads or writes values.
    Answer no(LPCWSTR scope, LPCWSTR name, const WideString &description);

    Phase &phaseAt(const Place &place);
    Store &storeAt(const Place &place);
};

// The elements of a list, or the reason why it is none.
WideString TakeNumbers(const ListAccount &list, Numbers &numbers);
WideString TakeTexts(const ListAccount &list, std::vector<MaybeText> &texts);

} // namespace fuzz::model
