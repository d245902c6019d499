#include "reference/engine/flash/flash_reason.h"

#include <cstdarg>
#include <cstdio>

namespace reference {

namespace {

struct VariableRow {
    const char *name;
    const char *unit;
};

// By FlashVariable.
constexpr VariableRow variables[flashVariableCount] = {
    {"temperature", "K"},          {"pressure", "Pa"},           {"vapor fraction", ""},
    {"vapor mass fraction", ""},   {"enthalpy", "J/mol"},        {"entropy", "J/mol/K"},
    {"volume", "m3/mol"},          {"internal energy", "J/mol"}, {"Gibbs energy", "J/mol"},
    {"Helmholtz energy", "J/mol"},
};

} // namespace

const char *flashVariableName(FlashVariable variable) { return variables[static_cast<int>(variable)].name; }
const char *flashVariableUnit(FlashVariable variable) { return variables[static_cast<int>(variable)].unit; }

void giveReason(FlashReason &reason, const char *format, ...)
{
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(reason.data(), reason.size(), format, values);
    va_end(values);
}

SpecificationText::SpecificationText(const FlashSpecification &specification)
{
    const char *unit = flashVariableUnit(specification.variable);
    std::snprintf(text.data(), text.size(), "the %s %.6g%s%s", flashVariableName(specification.variable),
                  specification.value, *unit ? " " : "", unit);
}

} // namespace reference
