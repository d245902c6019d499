#include "reference/engine/flash/flash_reason.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

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

// A number as %g has it; in short without the sign and the zero of an exponent above zero.
std::array<char, 16> numberText(double number, LimitsText::Form form)
{
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), "%.6g", number);
    if (char *exponent = std::strstr(text.data(), "e+0"); exponent && form == LimitsText::Form::brief)
        std::memmove(exponent + 1, exponent + 3, std::strlen(exponent + 3) + 1);
    return text;
}

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

LimitsText::LimitsText(FlashVariable condition, Form form)
{
    const FlashLimits limits = flashLimitsOf(condition);
    const char *unit = flashVariableUnit(condition);
    const bool twice = form == Form::full;
    std::snprintf(text.data(), text.size(), "from %s%s%s to %s %s", numberText(limits.lowest, form).data(),
                  twice ? " " : "", twice ? unit : "", numberText(limits.highest, form).data(), unit);
}

} // namespace reference
