#include "fuzz/reference_package/checks.h"

#include "cape/com/com_pointer.h"
#include "reference/engine/equilibrium/flash_types.h"

#include <cmath>
#include <vector>

using namespace reference;

namespace fuzz {

namespace {

// The members of the interfaces that some kinds of errors have.
void CheckMembers(IUnknown &object, HRESULT result)
{
    ComPointer<ECapeBadArgument> argument;
    ComPointer<ECapeBoundaries> boundaries;
    ComPointer<ECapeBadInvOrder> order;
    FUZZ_CHECK(argument.queryFrom(&object) == S_OK && boundaries.queryFrom(&object) == S_OK &&
               order.queryFrom(&object) == S_OK);
    const bool isOutside = result == errors::outOfBounds.result;
    SHORT position = -1;
    FUZZ_CHECK(argument->get_position(&position) == S_OK);
    FUZZ_CHECK((position > 0) == (isOutside || result == errors::invalidArgument.result));
    double lower = 0.0;
    double upper = 0.0;
    double value = 0.0;
    FUZZ_CHECK(boundaries->get_LowerBound(&lower) == S_OK && boundaries->get_UpperBound(&upper) == S_OK &&
               boundaries->get_value(&value) == S_OK);
    FUZZ_CHECK(isOutside ? value < lower || value > upper
                         : std::isnan(lower) && std::isnan(upper) && std::isnan(value));
    BSTR operation = nullptr;
    FUZZ_CHECK(order->get_requestedOperation(&operation) == S_OK);
    FUZZ_CHECK((SysStringLen(operation) > 0) == (result == errors::badInvocationOrder.result));
    SysFreeString(operation);
}

bool isNear(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

} // namespace

void CheckFailure(IUnknown &object, HRESULT result)
{
    FUZZ_CHECK(result == E_POINTER || result == E_NOTIMPL ||
               (result >= ECapeUnknownHR && result <= ECapeThrmPropertyNotAvailableHR));
    if (result == E_POINTER || result == E_NOTIMPL)
        return;
    ComPointer<ECapeUser> user;
    ComPointer<ECapeRoot> root;
    FUZZ_CHECK(user.queryFrom(&object) == S_OK && root.queryFrom(&object) == S_OK);
    LONG code = 0;
    FUZZ_CHECK(user->get_code(&code) == S_OK && code == result);
    for (const auto get : {&ECapeUser::get_description, &ECapeUser::get_scope, &ECapeUser::get_interfaceName,
                           &ECapeUser::get_operation, &ECapeUser::get_moreInfo}) {
        BSTR text = nullptr;
        FUZZ_CHECK((user.get()->*get)(&text) == S_OK);
        FUZZ_CHECK(SysStringLen(text) > 0);
        SysFreeString(text);
    }
    BSTR name = nullptr;
    FUZZ_CHECK(root->get_name(&name) == S_OK && SysStringLen(name) > 0);
    SysFreeString(name);
    CheckMembers(object, result);
}

void CheckEquilibrium(const Material &material)
{
    if (material.phases.empty())
        return;
    double feed = 0.0;
    for (const double amount : material.feed)
        feed += amount;
    std::vector<double> total(material.feed.size(), 0.0);
    double amounts = 0.0;
    for (const Material::Phase &phase : material.phases) {
        FUZZ_CHECK(flashLimitsOf(FlashVariable::temperature).contain(phase.temperature));
        FUZZ_CHECK(flashLimitsOf(FlashVariable::pressure).contain(phase.pressure));
        FUZZ_CHECK(phase.temperature == material.phases[0].temperature);
        FUZZ_CHECK(phase.pressure == material.phases[0].pressure);
        FUZZ_CHECK(phase.fractions.size() == total.size());
        FUZZ_CHECK(phase.amount >= 0.0 && phase.amount <= 1.0);
        amounts += phase.amount;
        double sum = 0.0;
        for (std::size_t i = 0; i < total.size(); ++i) {
            FUZZ_CHECK(phase.fractions[i] >= 0.0);
            sum += phase.fractions[i];
            total[i] += phase.amount * phase.fractions[i];
        }
        FUZZ_CHECK(isNear(sum, 1.0, 1e-9));
    }
    FUZZ_CHECK(isNear(amounts, 1.0, 1e-9));
    for (std::size_t i = 0; i < total.size(); ++i)
        FUZZ_CHECK(isNear(total[i], material.feed[i] / feed, 1e-7));
}

} // namespace fuzz
