#include "bench/support/bench_package.h"

#include "cape/com/bstr.h"
#include "tests/support/standing_factory.h"

#include <cstdio>
#include <string>

namespace {

VARIANT doubles(ULONG count, double value)
{
    VARIANT result;
    VariantInit(&result);
    result.parray = SafeArrayCreateVector(VT_R8, 0, count);
    result.vt = VT_ARRAY | VT_R8;
    void *data = nullptr;
    SafeArrayAccessData(result.parray, &data);
    for (ULONG i = 0; i < count; ++i)
        static_cast<double *>(data)[i] = value;
    SafeArrayUnaccessData(result.parray);
    return result;
}

template <class TextOfIndex> VARIANT texts(ULONG count, TextOfIndex textOf)
{
    VARIANT result;
    VariantInit(&result);
    result.parray = SafeArrayCreateVector(VT_BSTR, 0, count);
    result.vt = VT_ARRAY | VT_BSTR;
    for (LONG i = 0; i < static_cast<LONG>(count); ++i)
        SafeArrayPutElement(result.parray, &i, Bstr(textOf(i)).get());
    return result;
}

// The strings of an array where they lie.
class NamesOf {
public:
    explicit NamesOf(const VARIANT &names) : array(names.parray)
    {
        void *data = nullptr;
        SafeArrayAccessData(array, &data);
        texts = static_cast<BSTR *>(data);
        LONG last = -1;
        SafeArrayGetUBound(array, 1, &last);
        count = last + 1;
    }
    NamesOf(const NamesOf &) = delete;
    NamesOf &operator=(const NamesOf &) = delete;
    ~NamesOf() { SafeArrayUnaccessData(array); }
    const BSTR *begin() const { return texts; }
    const BSTR *end() const { return texts + count; }

private:
    SAFEARRAY *array;
    BSTR *texts;
    LONG count;
};

double sumOf(const VARIANT &composition)
{
    void *data = nullptr;
    SafeArrayAccessData(composition.parray, &data);
    LONG last = -1;
    SafeArrayGetUBound(composition.parray, 1, &last);
    double sum = 0;
    for (LONG i = 0; i <= last; ++i)
        sum += static_cast<double *>(data)[i];
    SafeArrayUnaccessData(composition.parray);
    return sum;
}

constexpr CLSID benchClass = {0x7A1D3C60, 0x52E4, 0x4F0A, {0xB8, 0x11, 0x6E, 0x93, 0x0D, 0xC7, 0x24, 0xF5}};

// Lives as long as the program.
class BenchFactory final : public StandingFactory {
public:
    int compounds = 2;

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID iid, void **object) override
    {
        return (new BenchPackage(compounds))->QueryInterface(iid, object);
    }
};

void createKey(const WideString &path, LPCWSTR valueName, LPCWSTR text)
{
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (text)
        RegSetValueExW(key, valueName, 0, REG_SZ, reinterpret_cast<const BYTE *>(text),
                       static_cast<DWORD>((WideString(text).size() + 1) * sizeof(WCHAR)));
    RegCloseKey(key);
}

} // namespace

HRESULT STDMETHODCALLTYPE BenchPackage::QueryInterface(REFIID iid, void **object)
{
    *object = nullptr;
    if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoCompounds>)
        *object = static_cast<ICapeThermoCompounds *>(this);
    else if (iid == InterfaceId<ICapeThermoPhases>)
        *object = static_cast<ICapeThermoPhases *>(this);
    else if (iid == InterfaceId<ICapeThermoPropertyRoutine>)
        *object = static_cast<ICapeThermoPropertyRoutine *>(this);
    else if (iid == InterfaceId<ICapeThermoEquilibriumRoutine>)
        *object = static_cast<ICapeThermoEquilibriumRoutine *>(this);
    else if (iid == InterfaceId<ICapeThermoMaterialContext>)
        *object = static_cast<ICapeThermoMaterialContext *>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE BenchPackage::Release()
{
    const ULONG left = --references;
    if (left == 0)
        delete this;
    return left;
}

HRESULT STDMETHODCALLTYPE BenchPackage::GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names,
                                                        VARIANT *boiling, VARIANT *weights, VARIANT *casNumbers)
{
    const auto name = [](LONG i) {
        WCHAR text[32];
        swprintf(text, 32, OLESTR("compound %d"), static_cast<int>(i));
        return WideString(text);
    };
    const ULONG count = static_cast<ULONG>(compoundCount);
    for (VARIANT *list : {ids, formulae, names, casNumbers})
        *list = texts(count, name);
    *boiling = doubles(count, 300);
    *weights = doubles(count, 18);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE BenchPackage::GetPhaseList(VARIANT *labels, VARIANT *states, VARIANT *keyCompounds)
{
    const auto label = [](LONG i) { return i == 0 ? OLESTR("Vapor") : OLESTR("Liquid"); };
    *labels = texts(2, label);
    *states = texts(2, label);
    *keyCompounds = texts(2, [](LONG) { return OLESTR(""); });
    return S_OK;
}

HRESULT STDMETHODCALLTYPE BenchPackage::CalcSinglePhaseProp(VARIANT properties, BSTR phaseLabel)
{
    double temperature = 0;
    double pressure = 0;
    VARIANT composition;
    VariantInit(&composition);
    HRESULT hr = material->GetTPFraction(phaseLabel, &temperature, &pressure, &composition);
    if (FAILED(hr))
        return hr;
    const double value = temperature + pressure + sumOf(composition);
    VariantClear(&composition);
    for (const BSTR name : NamesOf(properties)) {
        VARIANT values = doubles(1, value);
        const Bstr basis(storedBasis);
        hr = material->SetSinglePhaseProp(name, phaseLabel, basis.get(), values);
        VariantClear(&values);
        if (FAILED(hr))
            return hr;
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE BenchPackage::CalcTwoPhaseProp(VARIANT properties, VARIANT phaseLabels)
{
    double value = 0;
    for (const BSTR label : NamesOf(phaseLabels)) {
        double temperature = 0;
        double pressure = 0;
        VARIANT composition;
        VariantInit(&composition);
        const HRESULT hr = material->GetTPFraction(label, &temperature, &pressure, &composition);
        if (FAILED(hr))
            return hr;
        value += temperature + pressure + sumOf(composition);
        VariantClear(&composition);
    }
    for (const BSTR name : NamesOf(properties)) {
        VARIANT values = doubles(1, value);
        const HRESULT hr = material->SetTwoPhaseProp(name, phaseLabels, nullptr, values);
        VariantClear(&values);
        if (FAILED(hr))
            return hr;
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE BenchPackage::CalcEquilibrium(VARIANT, VARIANT, BSTR)
{
    double temperature = 0;
    double pressure = 0;
    VARIANT composition;
    VariantInit(&composition);
    HRESULT hr = material->GetOverallTPFraction(&temperature, &pressure, &composition);
    if (FAILED(hr))
        return hr;
    const Bstr vapor(OLESTR("Vapor"));
    const Bstr mole(OLESTR("mole"));
    const Bstr fraction(OLESTR("fraction"));
    const Bstr phaseFraction(OLESTR("phaseFraction"));
    VARIANT labels = texts(1, [](LONG) { return OLESTR("Vapor"); });
    VARIANT status;
    VariantInit(&status);
    hr = material->SetPresentPhases(labels, status);
    if (SUCCEEDED(hr))
        hr = material->SetSinglePhaseProp(fraction.get(), vapor.get(), mole.get(), composition);
    VARIANT amount = doubles(1, 1.0);
    if (SUCCEEDED(hr))
        hr = material->SetSinglePhaseProp(phaseFraction.get(), vapor.get(), mole.get(), amount);
    VariantClear(&amount);
    VariantClear(&labels);
    VariantClear(&composition);
    return hr;
}

HRESULT STDMETHODCALLTYPE BenchPackage::SetMaterial(IDispatch *newMaterial) { return material.queryFrom(newMaterial); }

HRESULT STDMETHODCALLTYPE BenchPackage::UnsetMaterial()
{
    material.reset();
    return S_OK;
}

void RegisterBenchPackage(int compounds)
{
    static BenchFactory factory;
    factory.compounds = compounds;
    static DWORD cookie = 0;
    if (cookie)
        return;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CoRegisterClassObject(benchClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    WCHAR id[40];
    StringFromGUID2(benchClass, id, 40);
    const WideString path = WideString(OLESTR("CLSID\\")) + id;
    createKey(path + OLESTR("\\Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}"), nullptr, nullptr);
    createKey(path + OLESTR("\\CapeDescription"), OLESTR("Name"), OLESTR("Bench"));
}
