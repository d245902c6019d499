// The material as a package sees it, with tests' own types in place of automation values.
// A basis or label that is a null pointer is handed over as a null BSTR.
#pragma once

#include "cape/com/cape_open.h"
#include "tests/support/automation_values.h"

#include <ostream>
#include <string>
#include <vector>

namespace support {

// A text argument that may be missing.
class OptionalText {
public:
    OptionalText(const char *utf8) : present(utf8 != nullptr), bstr(utf8 ? utf8 : "") {}
    OptionalText(const std::string &utf8) : present(true), bstr(utf8) {}
    OptionalText(const WideString &text) : present(true), bstr(text) {}

    operator BSTR() const { return present ? static_cast<BSTR>(bstr) : nullptr; }

private:
    bool present;
    OwnedBstr bstr;
};

// What an object tells about the call that it refused last.
struct RefusedCall {
    WideString name;
    WideString description;
    WideString interfaceName;
    WideString scope;

    bool operator==(const RefusedCall &) const = default;
    friend void PrintTo(const RefusedCall &call, std::ostream *stream)
    {
        *stream << Narrow(call.name) << ": " << Narrow(call.description) << " (" << Narrow(call.interfaceName) << ", "
                << Narrow(call.scope) << ")";
    }
};
RefusedCall LastRefusal(IUnknown *object);

struct Conditions {
    double temperature = 0;
    double pressure = 0;
    std::vector<double> composition;
};

class MaterialClient {
public:
    explicit MaterialClient(ICapeThermoMaterial *borrowed) : material(borrowed) {}

    ICapeThermoMaterial *get() const { return material; }
    RefusedCall lastRefusal() const { return LastRefusal(material); }

    HRESULT setSinglePhase(const OptionalText &property, const OptionalText &phase, const OptionalText &basis,
                           const std::vector<double> &values) const;
    HRESULT setTwoPhase(const OptionalText &property, std::initializer_list<AnyText> phases, const OptionalText &basis,
                        const std::vector<double> &values) const;
    HRESULT setTwoPhase(const OptionalText &property, const std::vector<WideString> &phases, const OptionalText &basis,
                        const std::vector<double> &values) const;
    HRESULT setOverall(const OptionalText &property, const OptionalText &basis,
                       const std::vector<double> &values) const;
    // Every phase with the status CAPE_ATEQUILIBRIUM.
    HRESULT setPresentPhases(std::initializer_list<AnyText> phases) const;

    // Phases that the package has found: label, fraction and composition in a basis, with the
    // temperature and pressure of all; the first call that fails gives the result.
    struct Phase {
        AnyText label;
        double fraction;
        std::vector<double> composition;
    };
    HRESULT setEquilibrium(const std::vector<Phase> &phases, double temperature, double pressure,
                           const char *basis = "mole") const;

    HRESULT getSinglePhase(const OptionalText &property, const OptionalText &phase, const OptionalText &basis,
                           std::vector<double> &values) const;
    HRESULT getTwoPhase(const OptionalText &property, std::initializer_list<AnyText> phases, const OptionalText &basis,
                        std::vector<double> &values) const;
    HRESULT getOverall(const OptionalText &property, const OptionalText &basis, std::vector<double> &values) const;
    HRESULT getConditions(const OptionalText &phase, Conditions &conditions) const; // GetTPFraction
    HRESULT getOverallConditions(Conditions &conditions) const;                     // GetOverallTPFraction
    HRESULT getPresentPhases(std::vector<WideString> &labels, std::vector<LONG> &status) const;

private:
    ICapeThermoMaterial *material;
};

} // namespace support
