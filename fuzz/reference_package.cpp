// The reference packages, called in any order with any arguments, with a material that answers anything. What they
// write has to be free of NaN, an equilibrium has to hold all of the feed, and a failure has to say what it was.
#include "fuzz/automation.h"
#include "reference/package/compound_constants.h"
#include "reference/package/package_manager.h"
#include "reference/package/package_table.h"
#include "reference/package/phase_table.h"
#include "reference/package/property_name.h"
#include "reference/package/property_package.h"
#include "reference/server/class_table.h"

#include "cape/com/com_pointer.h"

#include <cmath>
#include <functional>
#include <string>

using namespace reference;

namespace {

constexpr int deepestCall = 3;

WideString wideOf(std::string_view ascii) { return WideString(ascii.begin(), ascii.end()); }

// Every name of a property that a package has.
const std::vector<std::string> &propertyNames()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> list;
        for (const QuantityShape &shape : phaseQuantities())
            addNames(shape, list);
        for (const QuantityShape &shape : pairQuantities())
            addNames(shape, list);
        for (const CompoundConstant &row : compoundConstants())
            list.emplace_back(row.name);
        for (const ConditionedProperties *table : {&temperatureDependentProperties(), &pressureDependentProperties()})
            for (const ConditionedProperty &row : table->rows)
                list.emplace_back(row.name);
        return list;
    }();
    return names;
}

bool seldom(FuzzedDataProvider &input) { return input.ConsumeIntegralInRange(0, 15) == 0; }

WideString anyWord(FuzzedDataProvider &input, std::initializer_list<const char *> words)
{
    if (seldom(input))
        return AnyText(input, 12);
    return wideOf(words.begin()[input.ConsumeIntegralInRange<std::size_t>(0, words.size() - 1)]);
}

WideString anyPropertyName(FuzzedDataProvider &input)
{
    const std::vector<std::string> &names = propertyNames();
    return seldom(input) ? AnyText(input, 12)
                         : wideOf(names[input.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)]);
}

WideString anyLabel(FuzzedDataProvider &input) { return anyWord(input, {"Vapor", "Liquid", "vapor", "Overall", ""}); }

BSTR textOrNull(FuzzedDataProvider &input, const WideString &text)
{
    return text.empty() && input.ConsumeBool() ? nullptr : NewText(text);
}

double anyTemperature(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return AnyNumber(input);
    case 1:
        return input.ConsumeBool() ? lowestFlashTemperature : highestFlashTemperature;
    default:
        return input.ConsumeIntegralInRange<int>(200, 15000) / 10.0;
    }
}

double anyPressure(FuzzedDataProvider &input)
{
    switch (input.ConsumeIntegralInRange(0, 5)) {
    case 0:
        return AnyNumber(input);
    case 1:
        return input.ConsumeBool() ? lowestFlashPressure : highestFlashPressure;
    default:
        return std::exp(input.ConsumeIntegralInRange<int>(-460, 1842) / 100.0); // 0.01 to 1e8 Pa
    }
}

double anyAmount(FuzzedDataProvider &input)
{
    return seldom(input) ? AnyNumber(input) : input.ConsumeIntegral<std::uint8_t>() / 255.0;
}

VARIANT propertyList(FuzzedDataProvider &input)
{
    if (seldom(input))
        return OddValue(input);
    std::vector<WideString> names(input.ConsumeIntegralInRange<std::size_t>(1, 3));
    for (WideString &name : names)
        name = anyPropertyName(input);
    return NewTexts(input, names);
}

VARIANT compoundList(FuzzedDataProvider &input)
{
    if (seldom(input))
        return OddValue(input);
    if (input.ConsumeBool())
        return VARIANT{};
    std::vector<WideString> ids(input.ConsumeIntegralInRange<std::size_t>(1, 3));
    for (WideString &id : ids)
        id = wideOf(compoundTable()[input.ConsumeIntegralInRange<std::size_t>(0, compoundTable().size() - 1)].id);
    return NewTexts(input, ids);
}

VARIANT specification(FuzzedDataProvider &input)
{
    if (seldom(input))
        return OddValue(input);
    std::vector<WideString> parts = {
        anyWord(input, {"temperature", "pressure", "phaseFraction", "enthalpy", "enthalpyF", "enthalpyNF", "entropy",
                        "entropyF", "volume", "internalEnergy", "gibbsEnergy", "helmholtzEnergy"}),
        anyWord(input, {"", "mole", "mass"}),
    };
    parts.push_back(anyWord(input, {parts[0] == OLESTR("phaseFraction") ? "Vapor" : "Overall", "Overall", "Liquid"}));
    if (seldom(input))
        parts.pop_back();
    else if (seldom(input))
        parts.emplace_back(OLESTR("methane"));
    return NewTexts(input, parts);
}

// A list that a package gave, and the number of its elements; -1 for what is no list.
int lengthOf(const VARIANT &value, VARTYPE type)
{
    if (value.vt != (VT_ARRAY | type) || !value.parray || value.parray->cDims != 1)
        return -1;
    VARTYPE held = VT_EMPTY;
    FUZZ_CHECK(SafeArrayGetVartype(value.parray, &held) == S_OK && held == type);
    return static_cast<int>(value.parray->rgsabound[0].cElements);
}

std::vector<double> numbersWritten(const VARIANT &value)
{
    const int count = lengthOf(value, VT_R8);
    FUZZ_CHECK(count > 0);
    const auto *first = static_cast<const double *>(value.parray->pvData);
    std::vector<double> numbers(first, first + count);
    for (const double number : numbers)
        FUZZ_CHECK(!std::isnan(number));
    return numbers;
}

class Material final : public WithoutDispatch<ICapeThermoMaterial>,
                       public WithoutDispatch<ICapeThermoCompounds>,
                       public WithoutDispatch<ECapeUser> {
public:
    // `callBack` calls something of the package in the midst of a call of its own.
    Material(FuzzedDataProvider &data, std::function<void()> call) : input(data), callBack(std::move(call))
    {
        std::vector<std::size_t> order;
        std::size_t count = input.ConsumeIntegralInRange<std::size_t>(1, 5);
        if (seldom(input)) // more than there are
            count = input.ConsumeIntegralInRange<std::size_t>(6, compoundTable().size() + 1);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t which = input.remaining_bytes() == 0
                                          ? i % compoundTable().size()
                                          : input.ConsumeIntegralInRange<std::size_t>(0, compoundTable().size() - 1);
            const CompoundData &compound = compoundTable()[which];
            ids.push_back(seldom(input) ? AnyText(input, 10) : wideOf(compound.id));
            casNumbers.push_back(wideOf(compound.casNumber));
            amounts.push_back(anyAmount(input));
        }
        temperature = anyTemperature(input);
        pressure = anyPressure(input);
    }

    // What the last equilibrium was written as.
    struct Phase {
        WideString label;
        std::vector<double> fractions;
        double temperature = 0;
        double pressure = 0;
        double amount = 0;
    };
    std::vector<Phase> phases;
    std::vector<double> feed; // the last composition that was given
    double temperature;
    double pressure;
    ULONG references = 1;
    std::vector<WideString> ids;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        *object = nullptr;
        if (seldom(input))
            return input.ConsumeBool() ? E_NOINTERFACE : S_OK; // a success that gives nothing
        if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoMaterial>)
            *object = static_cast<ICapeThermoMaterial *>(this);
        else if (iid == InterfaceId<ICapeThermoCompounds>)
            *object = static_cast<ICapeThermoCompounds *>(this);
        else if (iid == InterfaceId<ECapeUser>)
            *object = static_cast<ECapeUser *>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        FUZZ_CHECK(references > 1); // the target has one to the end
        return --references;
    }

    HRESULT STDMETHODCALLTYPE ClearAllProps() override { return result(); }
    HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **) override { return result(); }
    HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR property, BSTR, VARIANT *results) override
    {
        FUZZ_CHECK(property && results && results->vt == VT_EMPTY);
        const HRESULT answer = result();
        if (SUCCEEDED(answer) || seldom(input))
            *results = isWord(property, OLESTR("fraction")) ? composition() : oneNumber(property);
        return answer;
    }
    HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *t, double *p, VARIANT *fractions) override
    {
        return conditions(t, p, fractions);
    }
    HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *labels, VARIANT *statuses) override
    {
        FUZZ_CHECK(labels->vt == VT_EMPTY && statuses->vt == VT_EMPTY);
        const HRESULT answer = result();
        if (FAILED(answer) && !seldom(input))
            return answer;
        if (seldom(input)) {
            *labels = OddValue(input);
        } else {
            static const std::vector<WideString> lists[] = {
                {OLESTR("Vapor"), OLESTR("Liquid")}, {OLESTR("Liquid")}, {OLESTR("Vapor")}, {}, {OLESTR("Solid")}};
            *labels = NewTexts(input, lists[seldom(input) ? input.ConsumeIntegralInRange(1, 4) : 0]);
        }
        if (input.ConsumeBool())
            *statuses = OddValue(input);
        return answer;
    }
    HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT *results) override
    {
        FUZZ_CHECK(property && label && results->vt == VT_EMPTY);
        const HRESULT answer = result();
        if (SUCCEEDED(answer) || seldom(input))
            *results = oneNumber(property);
        return answer;
    }
    HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR, double *t, double *p, VARIANT *fractions) override
    {
        return conditions(t, p, fractions);
    }
    HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR, VARIANT, BSTR, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR property, BSTR, VARIANT values) override
    {
        FUZZ_CHECK(property && numbersWritten(values).size() == 1);
        return result();
    }
    HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT labels, VARIANT statuses) override
    {
        const int count = lengthOf(labels, VT_BSTR);
        FUZZ_CHECK(count >= 1 && count <= phaseCount && lengthOf(statuses, VT_I4) == count);
        phases.assign(static_cast<std::size_t>(count), {});
        for (int i = 0; i < count; ++i)
            phases[static_cast<std::size_t>(i)].label = static_cast<BSTR *>(labels.parray->pvData)[i];
        return result();
    }
    HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT values) override
    {
        FUZZ_CHECK(property && label);
        const std::vector<double> numbers = numbersWritten(values);
        for (Phase &phase : phases) {
            if (phase.label != label)
                continue;
            if (isWord(property, OLESTR("fraction")))
                phase.fractions = numbers;
            else if (isWord(property, OLESTR("phaseFraction")))
                phase.amount = numbers.at(0);
            else if (isWord(property, OLESTR("temperature")))
                phase.temperature = numbers.at(0);
            else if (isWord(property, OLESTR("pressure")))
                phase.pressure = numbers.at(0);
        }
        return result();
    }
    HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR property, VARIANT labels, BSTR, VARIANT values) override
    {
        FUZZ_CHECK(property && lengthOf(labels, VT_BSTR) == 2);
        numbersWritten(values);
        return result();
    }

    HRESULT STDMETHODCALLTYPE GetCompoundList(VARIANT *idList, VARIANT *formulae, VARIANT *names,
                                              VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                              VARIANT *casTexts) override
    {
        const HRESULT answer = result();
        *idList = seldom(input) ? OddValue(input) : NewTexts(input, ids);
        if (input.ConsumeBool())
            *casTexts = seldom(input) ? OddValue(input) : NewTexts(input, casNumbers);
        for (VARIANT *other : {formulae, names, boilingTemperatures, molecularWeights})
            if (seldom(input))
                *other = OddValue(input);
        return answer;
    }
    HRESULT STDMETHODCALLTYPE GetCompoundConstant(VARIANT, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetConstPropList(VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetNumCompounds(LONG *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetPDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetPDependentPropList(VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetTDependentProperty(VARIANT, double, VARIANT, VARIANT *) override { return result(); }
    HRESULT STDMETHODCALLTYPE GetTDependentPropList(VARIANT *) override { return result(); }

    HRESULT STDMETHODCALLTYPE get_code(LONG *code) override
    {
        *code = input.ConsumeIntegral<LONG>();
        return result();
    }
    HRESULT STDMETHODCALLTYPE get_description(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_scope(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_operation(BSTR *text) override { return words(text); }
    HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *text) override { return words(text); }

private:
    static bool isWord(BSTR text, LPCWSTR word) { return lstrcmpiW(text, word) == 0; }

    HRESULT result()
    {
        if (seldom(input))
            callBack();
        if (!seldom(input))
            return S_OK;
        static constexpr HRESULT results[] = {E_FAIL,  E_NOTIMPL,      E_OUTOFMEMORY,
                                              S_FALSE, ECapeUnknownHR, ECapeThrmPropertyNotAvailableHR};
        return input.PickValueInArray(results);
    }

    HRESULT words(BSTR *text)
    {
        *text = input.ConsumeBool() ? nullptr : NewText(AnyText(input, 20));
        return result();
    }

    VARIANT composition()
    {
        if (seldom(input)) {
            feed.clear();
            return OddValue(input);
        }
        feed = amounts;
        if (seldom(input))
            feed.push_back(0.5);
        return NewNumbers(input, feed);
    }

    VARIANT oneNumber(BSTR property)
    {
        if (seldom(input))
            return OddValue(input);
        if (isWord(property, OLESTR("temperature")))
            return NewNumbers(input, {temperature});
        if (isWord(property, OLESTR("pressure")))
            return NewNumbers(input, {pressure});
        if (isWord(property, OLESTR("phaseFraction")))
            return NewNumbers(input, {anyAmount(input)});
        if (isWord(property, OLESTR("volume")))
            return NewNumbers(input, {seldom(input) ? AnyNumber(input)
                                                    : std::exp(input.ConsumeIntegralInRange<int>(-1000, 500) / 100.0)});
        return NewNumbers(input, {seldom(input) ? AnyNumber(input) : input.ConsumeIntegral<std::int16_t>() * 3.0});
    }

    HRESULT conditions(double *t, double *p, VARIANT *fractions)
    {
        FUZZ_CHECK(t && p && fractions->vt == VT_EMPTY);
        const HRESULT answer = result();
        if (FAILED(answer) && !seldom(input))
            return answer;
        if (!seldom(input))
            *t = temperature;
        if (!seldom(input))
            *p = pressure;
        *fractions = composition();
        return answer;
    }

    FuzzedDataProvider &input;
    std::function<void()> callBack;
    std::vector<WideString> casNumbers;
    std::vector<double> amounts;
};

bool isNear(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

class Session {
public:
    explicit Session(FuzzedDataProvider &data)
        : input(data), materials{{data, [this] { callBack(); }}, {data, [this] { callBack(); }}}
    {
        auto *manager = new PackageManager(classTable()[0].description);
        const auto which = input.ConsumeIntegralInRange<std::size_t>(0, packageTable().size() - 1);
        const OwnText name(NewText(wideOf(packageTable()[which].name)));
        ComPointer<IDispatch> made;
        FUZZ_CHECK(manager->GetPropertyPackage(name, made.out()) == S_OK);
        Variant names;
        FUZZ_CHECK(manager->GetPropertyPackageList(names.out()) == S_OK);
        FUZZ_CHECK(lengthOf(names.get(), VT_BSTR) == static_cast<int>(packageTable().size()));
        const OwnText odd(textOrNull(input, AnyText(input, 10)));
        ComPointer<IDispatch> other;
        if (const HRESULT result = manager->GetPropertyPackage(odd, other.out()); FAILED(result))
            checkFailure(*static_cast<ICapeIdentification *>(manager), result);
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
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session()
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

    void run()
    {
        if (!seldom(input))
            context->SetMaterial(static_cast<ICapeThermoMaterial *>(&materials[0]));
        for (int more = input.ConsumeIntegralInRange(1, 12); more > 0; --more)
            callAny();
    }

private:
    // What a package does not expect in the midst of a calculation is most of it.
    void callBack()
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

    void callAny()
    {
        ++depth;
        ++calls;
        const HRESULT result = call();
        if (FAILED(result) && depth == 1)
            checkFailure(*context.get(), result);
        --depth;
    }

    // What a package refuses with an error of CAPE-OPEN it has words for.
    static void checkFailure(IUnknown &object, HRESULT result)
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
                               &ECapeUser::get_operation}) {
            BSTR text = nullptr;
            FUZZ_CHECK((user.get()->*get)(&text) == S_OK);
            FUZZ_CHECK(SysStringLen(text) > 0);
            SysFreeString(text);
        }
        BSTR name = nullptr;
        FUZZ_CHECK(root->get_name(&name) == S_OK && SysStringLen(name) > 0);
        SysFreeString(name);
    }

    HRESULT call()
    {
        switch (input.ConsumeIntegralInRange(0, 16)) {
        case 0:
            return setMaterial();
        case 1:
            return seldom(input) ? context->UnsetMaterial() : S_OK;
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

    HRESULT setMaterial()
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

    HRESULT calculatePhase()
    {
        Variant names;
        *names.out() = propertyList(input);
        const OwnText label(textOrNull(input, anyLabel(input)));
        return properties->CalcSinglePhaseProp(names.get(), label);
    }

    VARIANT labelPair()
    {
        if (seldom(input))
            return OddValue(input);
        std::vector<WideString> labels = {OLESTR("Vapor"), OLESTR("Liquid")};
        if (input.ConsumeBool())
            std::swap(labels[0], labels[1]);
        if (seldom(input))
            labels[0] = anyLabel(input);
        return NewTexts(input, labels);
    }

    HRESULT calculateTwoPhases()
    {
        Variant names;
        *names.out() = propertyList(input);
        Variant labels;
        *labels.out() = labelPair();
        return properties->CalcTwoPhaseProp(names.get(), labels.get());
    }

    HRESULT calculateEquilibrium()
    {
        Variant first;
        Variant second;
        *first.out() = specification(input);
        *second.out() = specification(input);
        const OwnText type(textOrNull(input, anyWord(input, {"", "Unspecified", "Normal", "Retrograde"})));
        const int before = calls;
        for (Material &material : materials)
            material.phases.clear();
        const HRESULT result = equilibrium->CalcEquilibrium(first.get(), second.get(), type);
        if (result == S_OK && before == calls) // nothing else was written in between
            for (const Material &material : materials)
                checkEquilibrium(material);
        return result;
    }

    static void checkEquilibrium(const Material &material)
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

    HRESULT checkSpecifications()
    {
        VARIANT_BOOL good = 7;
        VARIANT_BOOL *out = seldom(input) ? nullptr : &good;
        Variant first;
        HRESULT result = S_OK;
        switch (input.ConsumeIntegralInRange(0, 2)) {
        case 0: {
            Variant second;
            *first.out() = specification(input);
            *second.out() = specification(input);
            const OwnText type(textOrNull(input, anyWord(input, {"", "Unspecified", "Normal", "Retrograde"})));
            result = equilibrium->CheckEquilibriumSpec(first.get(), second.get(), type, out);
            break;
        }
        case 1: {
            const OwnText name(textOrNull(input, anyPropertyName(input)));
            const OwnText label(textOrNull(input, anyLabel(input)));
            result = properties->CheckSinglePhasePropSpec(name, label, out);
            break;
        }
        default: {
            const OwnText name(textOrNull(input, anyPropertyName(input)));
            *first.out() = labelPair();
            result = properties->CheckTwoPhasePropSpec(name, first.get(), out);
            break;
        }
        }
        FUZZ_CHECK(result == (out ? S_OK : E_POINTER));
        FUZZ_CHECK(!out || good == VARIANT_TRUE || good == VARIANT_FALSE);
        return result;
    }

    HRESULT fugacityCoefficients()
    {
        Variant amounts;
        if (seldom(input)) {
            *amounts.out() = OddValue(input);
        } else {
            std::vector<double> numbers(materials[0].ids.size());
            std::generate(numbers.begin(), numbers.end(), [&] { return anyAmount(input); });
            *amounts.out() = NewNumbers(input, numbers);
        }
        const OwnText label(textOrNull(input, anyLabel(input)));
        const INT flags = seldom(input) ? input.ConsumeIntegral<INT>() : input.ConsumeIntegralInRange<INT>(0, 15);
        Variant results[4];
        VARIANT *targets[4];
        for (int i = 0; i < 4; ++i) {
            if (input.ConsumeBool())
                *results[i].out() = OddValue(input); // which the package clears
            targets[i] = seldom(input) ? nullptr : results[i].out();
        }
        const double t = anyTemperature(input);
        const double p = anyPressure(input);
        const HRESULT result = properties->CalcAndGetLnPhi(label, t, p, amounts.get(), flags, targets[0], targets[1],
                                                           targets[2], targets[3]);
        if (result == S_OK)
            for (int i = 0; i < 4; ++i)
                if (targets[i] && (flags & 1 << i))
                    numbersWritten(results[i].get());
        return result;
    }

    HRESULT ofCompounds()
    {
        Variant names;
        Variant ids;
        Variant values;
        *names.out() = propertyList(input);
        *ids.out() = compoundList(input);
        VARIANT *target = seldom(input) ? nullptr : values.out();
        switch (input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            return compounds->GetCompoundConstant(names.get(), ids.get(), target);
        case 1:
            return compounds->GetTDependentProperty(names.get(), anyTemperature(input), ids.get(), target);
        default:
            return compounds->GetPDependentProperty(names.get(), anyPressure(input), ids.get(), target);
        }
    }

    HRESULT lists()
    {
        Variant values[6];
        VARIANT *target[6];
        for (int i = 0; i < 6; ++i)
            target[i] = seldom(input) ? nullptr : values[i].out();
        LONG count = -1;
        switch (input.ConsumeIntegralInRange(0, 7)) {
        case 0:
            return compounds->GetCompoundList(target[0], target[1], target[2], target[3], target[4], target[5]);
        case 1:
            return compounds->GetConstPropList(target[0]);
        case 2:
            return compounds->GetTDependentPropList(target[0]);
        case 3:
            return compounds->GetPDependentPropList(target[0]);
        case 4:
            return properties->GetSinglePhasePropList(target[0]);
        case 5:
            return properties->GetTwoPhasePropList(target[0]);
        case 6:
            return compounds->GetNumCompounds(seldom(input) ? nullptr : &count);
        default:
            return constants->GetUniversalConstantList(target[0]);
        }
    }

    HRESULT ofPhases()
    {
        Variant values[3];
        VARIANT *target[3];
        for (int i = 0; i < 3; ++i)
            target[i] = seldom(input) ? nullptr : values[i].out();
        LONG count = -1;
        switch (input.ConsumeIntegralInRange(0, 3)) {
        case 0:
            return phases->GetPhaseList(target[0], target[1], target[2]);
        case 1: {
            const OwnText label(textOrNull(input, anyLabel(input)));
            const OwnText attribute(
                textOrNull(input, anyWord(input, {"StateOfAggregation", "UserDescription", "KeyCompoundId",
                                                  "ExcludedCompoundId", "DensityDescription", "TypeOfSolid"})));
            return phases->GetPhaseInfo(label, attribute, target[0]);
        }
        case 2: {
            const OwnText id(textOrNull(input, anyWord(input, {"molarGasConstant", "avogadroConstant", "none"})));
            return constants->GetUniversalConstant(id, target[0]);
        }
        default:
            return phases->GetNumPhases(seldom(input) ? nullptr : &count);
        }
    }

    HRESULT common()
    {
        BSTR text = nullptr;
        BSTR *target = seldom(input) ? nullptr : &text;
        HRESULT result = S_OK;
        switch (input.ConsumeIntegralInRange(0, 7)) {
        case 0:
            result = identification->get_ComponentName(target);
            break;
        case 1:
            result = identification->get_ComponentDescription(target);
            break;
        case 2:
            return identification->put_ComponentName(OwnText(textOrNull(input, AnyText(input, 20))));
        case 3:
            return identification->put_ComponentDescription(OwnText(textOrNull(input, AnyText(input, 20))));
        case 4: {
            IDispatch *parameters = nullptr;
            result = utilities->get_parameters(&parameters);
            FUZZ_CHECK(FAILED(result) && !parameters);
            break;
        }
        case 5:
            return utilities->Initialize();
        case 6:
            return seldom(input) ? utilities->Terminate() : S_OK;
        default:
            return utilities->Edit();
        }
        SysFreeString(text);
        return result;
    }

    FuzzedDataProvider &input;
    Material materials[2];
    ComPointer<ICapeThermoMaterialContext> context;
    ComPointer<ICapeThermoCompounds> compounds;
    ComPointer<ICapeThermoPhases> phases;
    ComPointer<ICapeThermoPropertyRoutine> properties;
    ComPointer<ICapeThermoEquilibriumRoutine> equilibrium;
    ComPointer<ICapeThermoUniversalConstant> constants;
    ComPointer<ICapeUtilities> utilities;
    ComPointer<ICapeIdentification> identification;
    int depth = 0;
    int calls = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    Session(input).run();
    return 0;
}
