#include "fuzz/reference_package/session.h"

#include "fuzz/automation.h"
#include "fuzz/reference_package/checks.h"
#include "fuzz/reference_package/choices.h"
#include "fuzz/reference_package/written_values.h"
#include "reference/package/package_manager.h"
#include "reference/package/package_table.h"
#include "reference/server/class_table.h"

using namespace reference;

namespace fuzz {

namespace {

constexpr int deepestCall = 3;

} // namespace

Session::Session(FuzzedDataProvider &data)
    : input(data), materials{{data, [this] { callBack(); }}, {data, [this] { callBack(); }}}
{
    auto *manager = new PackageManager(classTable()[0].description);
    const auto which = input.ConsumeIntegralInRange<std::size_t>(0, packageTable().size() - 1);
    const Bstr name(packageTable()[which].name);
    ComPointer<IDispatch> made;
    FUZZ_CHECK(manager->GetPropertyPackage(name.get(), made.out()) == S_OK);
    Variant names;
    FUZZ_CHECK(manager->GetPropertyPackageList(names.out()) == S_OK);
    FUZZ_CHECK(LengthOf(names.get(), VT_BSTR) == static_cast<int>(packageTable().size()));
    const Bstr odd = TextOrNull(input, AnyText(input, 10));
    ComPointer<IDispatch> other;
    if (const HRESULT result = manager->GetPropertyPackage(odd.get(), other.out()); FAILED(result))
        CheckFailure(*static_cast<ICapeIdentification *>(manager), result);
    FUZZ_CHECK(manager->Release() == 0);
    context.queryFrom(made.get());
    compounds.queryFrom(made.get());
    phases.queryFrom(made.get());
    properties.queryFrom(made.get());
    equilibrium.queryFrom(made.get());
    constants.queryFrom(made.get());
    utilities.queryFrom(made.get());
    identification.queryFrom(made.get());
    FUZZ_CHECK(context && compounds && phases && properties && equilibrium && constants && utilities);
}

Session::~Session()
{
    compounds.reset();
    phases.reset();
    properties.reset();
    equilibrium.reset();
    constants.reset();
    utilities.reset();
    identification.reset();
    FUZZ_CHECK(context.detach()->Release() == 0);
    for (const Material &material : materials)
        FUZZ_CHECK(material.references == 1);
    FUZZ_CHECK(libraryUses == 0);
}

void Session::run()
{
    if (!Seldom(input))
        context->SetMaterial(static_cast<ICapeThermoMaterial *>(&materials[0]));
    for (int more = input.ConsumeIntegralInRange(1, 12); more > 0; --more)
        callAny();
}

// What a package does not expect in the midst of a calculation is most of it.
void Session::callBack()
{
    if (depth >= deepestCall)
        return;
    switch (input.ConsumeIntegralInRange(0, 3)) {
    case 0:
        context->UnsetMaterial();
        break;
    case 1:
        utilities->Terminate();
        break;
    case 2:
        setMaterial();
        break;
    default:
        callAny();
    }
    ++calls;
}

void Session::callAny()
{
    ++depth;
    ++calls;
    const HRESULT result = call();
    if (FAILED(result) && depth == 1)
        CheckFailure(*context.get(), result);
    --depth;
}

HRESULT Session::call()
{
    switch (input.ConsumeIntegralInRange(0, 16)) {
    case 0:
        return setMaterial();
    case 1:
        return Seldom(input) ? context->UnsetMaterial() : S_OK;
    case 2:
    case 3:
    case 4:
        return calculatePhase();
    case 5:
    case 6:
        return calculateTwoPhases();
    case 7:
    case 8:
    case 9:
        return calculateEquilibrium();
    case 10:
        return checkSpecifications();
    case 11:
        return fugacityCoefficients();
    case 12:
    case 13:
        return ofCompounds();
    case 14:
        return lists();
    case 15:
        return ofPhases();
    default:
        return common();
    }
}

HRESULT Session::setMaterial()
{
    Material &material = materials[input.ConsumeIntegralInRange(0, 1)];
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return context->SetMaterial(nullptr);
    case 1:
        return context->SetMaterial(context.get()); // which is no material
    default:
        return context->SetMaterial(static_cast<ICapeThermoMaterial *>(&material));
    }
}

} // namespace fuzz
