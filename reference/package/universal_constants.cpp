#include "cape/com/guarded_call.h"
#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/phase/mixture_model.h"
#include "reference/package/property_package.h"

namespace reference {

namespace {

constexpr auto interfaceName = OLESTR("ICapeThermoUniversalConstant");

struct UniversalConstant {
    std::string_view id;
    double value;
};

// The first five are exact by definition: SI Brochure, 9th ed. (BIPM 2019), and for gravity the
// resolution of the 3rd General Conference on Weights and Measures (1901).
constexpr UniversalConstant constants[] = {
    {"avogadroConstant", 6.02214076e23},          // 1/mol
    {"boltzmannConstant", 1.380649e-23},          // J/K
    {"molarGasConstant", gasConstant},            // J/mol/K
    {"speedOfLightInVacuum", 299792458.0},        // m/s
    {"standardAccelerationOfGravity", 9.80665},   // m/s2
    {"idealGasStateReferencePressure", 101325.0}, // Pa
};

} // namespace

HRESULT STDMETHODCALLTYPE PropertyPackage::GetUniversalConstant(BSTR id, VARIANT *value)
{
    const Call call{*this, interfaceName, OLESTR("GetUniversalConstant")};
    return GuardedCall([&]() -> HRESULT {
        if (!value)
            return E_POINTER;
        VariantInit(value);
        for (const UniversalConstant &constant : constants) {
            if (!sameWord(id, constant.id))
                continue;
            Value number;
            number.setNumber(constant.value);
            return number.give(value);
        }
        return call.refuse(errors::invalidArgument, OLESTR("There is no universal constant ") + quoted(id), 1);
    });
}

HRESULT STDMETHODCALLTYPE PropertyPackage::GetUniversalConstantList(VARIANT *ids)
{
    return GuardedCall([&]() -> HRESULT {
        if (!ids)
            return E_POINTER;
        VariantInit(ids);
        Value list;
        if (!list.setTexts(constants, &UniversalConstant::id))
            return E_OUTOFMEMORY;
        return list.give(ids);
    });
}

} // namespace reference
