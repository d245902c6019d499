// A VARIANT as a package hands it over, however wrong, beside a plain account of what it is.
#pragma once

#include "fuzz/support/words.h"
#include "platform/platform.h"

#include <vector>

namespace fuzz {

// What the VARIANT is, in plain words. Elements are those of a one-dimensional array of doubles or of texts.
struct ListAccount {
    VARTYPE type = VT_EMPTY;        // of the VARIANT
    VARTYPE elementType = VT_EMPTY; // of the array, whatever the VARIANT says
    bool isNull = false;            // an array is said to be there and is not
    UINT dimensions = 1;
    LONG lowerBound = 0; // of each dimension
    std::vector<double> numbers;
    std::vector<MaybeText> texts;
};

// Owner of such a VARIANT. The one who gets it may look at it and must leave it alone.
class ListArgument {
public:
    explicit ListArgument(ListAccount contents);
    ~ListArgument();
    ListArgument(const ListArgument &) = delete;
    ListArgument &operator=(const ListArgument &) = delete;

    const VARIANT &get() const { return value; }
    VARIANT detach(); // for an out-parameter: the receiver owns it from now on

    const ListAccount account;

private:
    VARIANT value;
    SAFEARRAY *array = nullptr;
};

// Where an array begins, as the input says: most often at 0.
LONG LowerBound(Input &input);
ListAccount FromAnyBound(Input &input, ListAccount account);

// Good lists.
ListAccount NumberList(std::vector<double> numbers);
ListAccount TextList(const std::vector<WideString> &texts);

// Numbers in one of the shapes of `counts`, or of another length; or no list of numbers at all.
ListAccount NumbersAccount(Input &input, const std::vector<std::size_t> &counts);

// Mostly two labels, or a list of any length; or no list of texts at all.
ListAccount LabelsAccount(Input &input, const std::vector<WideString> &known, std::size_t usualCount);

// Makes a good list something else, if the input says so.
void Spoil(Input &input, ListAccount &account);

// The texts of a list that the system hands over.
std::vector<WideString> TextsOf(const VARIANT &list);

// Whatever a careless package may leave in an out-parameter or pass for a list.
ListAccount AnyAccount(Input &input);

} // namespace fuzz
