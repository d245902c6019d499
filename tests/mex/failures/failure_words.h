// The words for a call of a component that failed, as commands have them.
#pragma once

#include "tests/support/component_script.h"

namespace support {

// The words for a result: of the component where it has some and the result is one that may be asked for.
std::string WordsFor(HRESULT result, const ErrorWords &words);

// Everything that a command may end with when a method gave the result ("alone.GetCompoundList"); empty when it goes on
// as if nothing had happened.
std::vector<std::string> TextsOfFailedMethod(const std::string &method, HRESULT result, const ErrorWords &words);

// The methods that there are words for, without those among `calls` ("alone.GetCompoundList").
std::vector<std::string> MethodsOfNone(const std::vector<std::string> &calls);

// The same for QueryInterface ("alone"), where S_OK came with no object.
std::vector<std::string> TextsOfFailedQuery(const std::string &label, REFIID wanted, HRESULT result);

// All texts by which a package's own failure to calculate is told.
std::vector<std::string> TextsOfFailedCalculation(HRESULT result);

} // namespace support
