#include "tests/reference/failures/package_operations.h"

#include <iterator>
#include <sstream>

namespace {

void tell(std::ostream &out, const VARIANT &value)
{
    out << value.vt;
    switch (value.vt) {
    case VT_R8:
        out << ' ' << value.dblVal;
        break;
    case VT_BSTR:
        out << " '" << (value.bstrVal ? narrow(value.bstrVal) : "null") << '\'';
        break;
    case VT_ARRAY | VT_R8:
        for (const double number : numbersOf(value))
            out << ' ' << number;
        break;
    case VT_ARRAY | VT_BSTR:
        for (const std::string &text : textsOf(value))
            out << " '" << text << '\'';
        break;
    case VT_ARRAY | VT_VARIANT: {
        reference::ArrayView<VARIANT, VT_VARIANT> list;
        EXPECT_TRUE(list.open(value));
        for (const VARIANT &element : list) {
            out << ' ';
            tell(out, element);
        }
        break;
    }
    }
}

// A call with arguments that it fills.
template <std::size_t count, class Call> OperationAnswer filled(Call call)
{
    Argument outputs[count];
    OperationAnswer answer;
    answer.result = call(outputs);
    if (FAILED(answer.result))
        return answer;
    std::ostringstream out;
    out.precision(17);
    for (const Argument &output : outputs) {
        tell(out, output.get());
        out << '\n';
    }
    answer.given = out.str();
    return answer;
}

// A call that writes to the material.
template <class Call> OperationAnswer written(PackageHost &host, Call call)
{
    host.material.written.clear();
    host.material.presentPhases = {"Vapor", "Liquid"};
    OperationAnswer answer;
    answer.result = call();
    if (FAILED(answer.result))
        return answer;
    std::ostringstream out;
    out.precision(17);
    for (const auto &[key, property] : host.material.written) {
        out << key << ' ' << property.basis;
        for (const double value : property.values)
            out << ' ' << value;
        out << '\n';
    }
    answer.given = out.str();
    return answer;
}

template <class Call> OperationAnswer yesOrNo(Call call)
{
    VARIANT_BOOL answered = 7;
    const HRESULT result = call(&answered);
    return {result, FAILED(result) ? "" : std::to_string(answered)};
}

template <class Object> OperationAnswer text(Object *object, HRESULT (STDMETHODCALLTYPE Object::*method)(BSTR *))
{
    Bstr given;
    const HRESULT result = (object->*method)(given.out());
    return {result, FAILED(result) ? "" : narrow(given.get())};
}

OperationAnswer created(const Library &library, REFCLSID classId)
{
    ComPointer<IClassFactory> factory;
    HRESULT result = library.getClassObject(classId, InterfaceId<IClassFactory>, factory.outVoid());
    if (FAILED(result))
        return {result, ""};
    ComPointer<ICapeIdentification> object;
    result = factory->CreateInstance(nullptr, InterfaceId<ICapeIdentification>, object.outVoid());
    return {result, SUCCEEDED(result) ? "an object" : ""};
}

OperationAnswer flashed(PackageHost &host, const std::vector<std::string> &first,
                        const std::vector<std::string> &second)
{
    return written(host, [&] {
        return host.equilibrium->CalcEquilibrium(texts(first).get(), texts(second).get(), Bstr("Unspecified").get());
    });
}

const std::vector<std::string> temperature = {"temperature", "", "Overall"};
const std::vector<std::string> pressure = {"pressure", "", "Overall"};

} // namespace

PackageHost::PackageHost(const Library &loaded)
    : library(loaded), manager(library.create<ICapeThermoPropertyPackageManager>(reference::managerClass))
{
    const auto package = library.create<IUnknown>(reference::standAloneClass);
    askFor(package.get());
    constants = as<ICapeThermoUniversalConstant>(package.get());
    identification = as<ICapeIdentification>(package.get());
    errors = as<ECapeUser>(package.get());
    material.temperature = 250.0;
    material.pressure = 3e6;
    material.composition = {0.25, 0.625, 0.125};
    material.given["Overall/enthalpy/mole"] = -5000.0;
    material.given["Overall/enthalpyF/mole"] = -90000.0;
    material.given["Vapor/phaseFraction/mole"] = 0.5;
    material.given["Overall/temperature/"] = 250.0;
    material.given["Overall/pressure/"] = 3e6;
}

const std::vector<PackageOperation> &PackageOperations()
{
    static const std::vector<PackageOperation> operations = {
        {"CreateManager", [](PackageHost &host) { return created(host.library, reference::managerClass); }},
        {"CreatePackage", [](PackageHost &host) { return created(host.library, reference::standAloneClass); }},
        {"GetPropertyPackageList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.manager->GetPropertyPackageList(list->out()); });
         }},
        {"GetPropertyPackage",
         [](PackageHost &host) {
             ComPointer<IDispatch> package;
             const HRESULT result = host.manager->GetPropertyPackage(Bstr("Refinery gas").get(), package.out());
             EXPECT_EQ(SUCCEEDED(result), static_cast<bool>(package));
             return OperationAnswer{result, ""};
         }},
        {"RefusePropertyPackage",
         [](PackageHost &host) {
             ComPointer<IDispatch> package;
             const HRESULT result = host.manager->GetPropertyPackage(Bstr("Another").get(), package.out());
             return OperationAnswer{result, ""};
         },
         refuses},
        {"SetMaterial",
         [](PackageHost &host) {
             return OperationAnswer{host.context->SetMaterial(static_cast<ICapeThermoMaterial *>(&host.material)), ""};
         },
         setsMaterial},
        {"GetCompoundList",
         [](PackageHost &host) {
             return filled<6>([&](Argument *lists) {
                 return host.compounds->GetCompoundList(lists[0].out(), lists[1].out(), lists[2].out(), lists[3].out(),
                                                        lists[4].out(), lists[5].out());
             });
         }},
        {"GetCompoundConstant",
         [](PackageHost &host) {
             return filled<1>([&](Argument *values) {
                 return host.compounds->GetCompoundConstant(
                     texts({"casRegistryNumber", "chemicalFormula", "molecularWeight"}).get(),
                     texts({"methane", "n-butane"}).get(), values->out());
             });
         }},
        {"RefuseCompoundConstant",
         [](PackageHost &host) {
             return filled<1>([&](Argument *values) {
                 return host.compounds->GetCompoundConstant(texts({"colorOfTheLabel"}).get(), VARIANT{}, values->out());
             });
         },
         refuses},
        {"GetConstPropList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.compounds->GetConstPropList(list->out()); });
         }},
        {"GetTDependentPropList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.compounds->GetTDependentPropList(list->out()); });
         }},
        {"GetPDependentPropList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.compounds->GetPDependentPropList(list->out()); });
         }},
        {"GetTDependentProperty",
         [](PackageHost &host) {
             return filled<1>([&](Argument *values) {
                 return host.compounds->GetTDependentProperty(texts({"vaporPressure", "idealGasHeatCapacity"}).get(),
                                                              180, texts({"methane", "ethane"}).get(), values->out());
             });
         }},
        {"GetPDependentProperty",
         [](PackageHost &host) {
             return filled<1>([&](Argument *values) {
                 return host.compounds->GetPDependentProperty(texts({"boilingPointTemperature"}).get(), 2e5, VARIANT{},
                                                              values->out());
             });
         }},
        {"GetPhaseList",
         [](PackageHost &host) {
             return filled<3>([&](Argument *lists) {
                 return host.phases->GetPhaseList(lists[0].out(), lists[1].out(), lists[2].out());
             });
         }},
        {"GetPhaseInfo",
         [](PackageHost &host) {
             return filled<1>([&](Argument *value) {
                 return host.phases->GetPhaseInfo(Bstr("Vapor").get(), Bstr("StateOfAggregation").get(), value->out());
             });
         }},
        {"RefusePhaseInfo",
         [](PackageHost &host) {
             return filled<1>([&](Argument *value) {
                 return host.phases->GetPhaseInfo(Bstr("Solid").get(), Bstr("StateOfAggregation").get(), value->out());
             });
         },
         refuses},
        {"GetSinglePhasePropList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.properties->GetSinglePhasePropList(list->out()); });
         }},
        {"GetTwoPhasePropList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.properties->GetTwoPhasePropList(list->out()); });
         }},
        {"CheckSinglePhasePropSpec",
         [](PackageHost &host) {
             return yesOrNo([&](VARIANT_BOOL *valid) {
                 return host.properties->CheckSinglePhasePropSpec(Bstr("viscosity").get(), Bstr("Vapor").get(), valid);
             });
         }},
        {"CheckTwoPhasePropSpec",
         [](PackageHost &host) {
             return yesOrNo([&](VARIANT_BOOL *valid) {
                 return host.properties->CheckTwoPhasePropSpec(Bstr("kvalue").get(), texts({"Vapor", "Liquid"}).get(),
                                                               valid);
             });
         },
         answersNo},
        {"CalcAndGetLnPhi",
         [](PackageHost &host) {
             return filled<4>([&](Argument *values) {
                 return host.properties->CalcAndGetLnPhi(Bstr("Vapor").get(), 250, 3e6,
                                                         numbers({0.25, 0.625, 0.125}).get(), 15, values[0].out(),
                                                         values[1].out(), values[2].out(), values[3].out());
             });
         }},
        {"CalcSinglePhaseProp",
         [](PackageHost &host) {
             return written(host, [&] {
                 return host.properties->CalcSinglePhaseProp(
                     texts({"volume", "logFugacityCoefficient", "viscosity", "enthalpy.Dmoles"}).get(),
                     Bstr("Vapor").get());
             });
         }},
        {"RefuseSinglePhaseProp",
         [](PackageHost &host) {
             return written(host, [&] {
                 return host.properties->CalcSinglePhaseProp(texts({"volume", "nothingOfTheKind"}).get(),
                                                             Bstr("Vapor").get());
             });
         },
         refuses},
        {"CalcTwoPhaseProp",
         [](PackageHost &host) {
             return written(host, [&] {
                 return host.properties->CalcTwoPhaseProp(texts({"kvalue", "logKvalue.Dtemperature"}).get(),
                                                          texts({"Vapor", "Liquid"}).get());
             });
         }},
        {"CheckEquilibriumSpec",
         [](PackageHost &host) {
             return yesOrNo([&](VARIANT_BOOL *supported) {
                 return host.equilibrium->CheckEquilibriumSpec(texts(temperature).get(), texts(pressure).get(),
                                                               Bstr("Normal").get(), supported);
             });
         },
         answersNo},
        {"FlashAtTemperatureAndPressure", [](PackageHost &host) { return flashed(host, temperature, pressure); }},
        {"FlashAtPressureAndEnthalpy",
         [](PackageHost &host) {
             return flashed(host, {"enthalpyF", "mole", "Overall"}, pressure);
         }},
        {"FlashAtVaporFraction",
         [](PackageHost &host) {
             return flashed(host, {"phaseFraction", "mole", "Vapor"}, pressure);
         }},
        {"RefuseFlash",
         [](PackageHost &host) {
             return flashed(host, {"color", "", "Overall"}, pressure);
         },
         refuses},
        {"GetUniversalConstant",
         [](PackageHost &host) {
             return filled<1>([&](Argument *value) {
                 return host.constants->GetUniversalConstant(Bstr("molarGasConstant").get(), value->out());
             });
         }},
        {"GetUniversalConstantList",
         [](PackageHost &host) {
             return filled<1>([&](Argument *list) { return host.constants->GetUniversalConstantList(list->out()); });
         }},
        {"ComponentName",
         [](PackageHost &host) { return text(host.identification.get(), &ICapeIdentification::get_ComponentName); }},
        {"ComponentDescription",
         [](PackageHost &host) {
             return text(host.identification.get(), &ICapeIdentification::get_ComponentDescription);
         }},
        {"PutComponentName",
         [](PackageHost &host) {
             const Bstr name("A package that its user has given a name of some length");
             const HRESULT result = host.identification->put_ComponentName(name.get());
             return FAILED(result) ? OperationAnswer{result, ""}
                                   : text(host.identification.get(), &ICapeIdentification::get_ComponentName);
         }},
        {"DescriptionOfAnError",
         [](PackageHost &host) {
             Argument value;
             host.phases->GetPhaseInfo(Bstr("A phase that is not there").get(), nullptr, value.out());
             return text(host.errors.get(), &ECapeUser::get_description);
         }},
        {"ScopeOfAnError", [](PackageHost &host) { return text(host.errors.get(), &ECapeUser::get_scope); }},
    };
    return operations;
}
