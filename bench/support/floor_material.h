// The least that a material can be: fields and a flat array, no checks, no names. What a loop over
// it costs is what the COM contract itself costs.
#pragma once

#include "cape/com/cape_open.h"
#include "tests/support/without_names.h"

#include <vector>

class FloorMaterial final : public WithoutNames<ICapeThermoMaterial> {
public:
    explicit FloorMaterial(int compounds) : composition(static_cast<std::size_t>(compounds)) {}

    double temperature = 0;
    double pressure = 0;
    std::vector<double> composition;
    double stored[16] = {}; // scalars in the order they were stored; set storedCount to 0 before
    int storedCount = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **object) override
    {
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; } // lives in its owner
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE ClearAllProps() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE CopyFromMaterial(IDispatch **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateMaterial(IDispatch **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetOverallProp(BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetOverallTPFraction(double *t, double *p, VARIANT *x) override { return give(t, p, x); }
    HRESULT STDMETHODCALLTYPE GetPresentPhases(VARIANT *, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSinglePhaseProp(BSTR, BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTPFraction(BSTR, double *t, double *p, VARIANT *x) override { return give(t, p, x); }
    HRESULT STDMETHODCALLTYPE GetTwoPhaseProp(BSTR, VARIANT, BSTR, VARIANT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetOverallProp(BSTR, BSTR, VARIANT values) override { return take(values); }
    HRESULT STDMETHODCALLTYPE SetPresentPhases(VARIANT, VARIANT) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetSinglePhaseProp(BSTR, BSTR, BSTR, VARIANT values) override { return take(values); }
    HRESULT STDMETHODCALLTYPE SetTwoPhaseProp(BSTR, VARIANT, BSTR, VARIANT values) override { return take(values); }

private:
    HRESULT give(double *t, double *p, VARIANT *x)
    {
        *t = temperature;
        *p = pressure;
        x->parray = SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(composition.size()));
        x->vt = VT_ARRAY | VT_R8;
        void *data = nullptr;
        SafeArrayAccessData(x->parray, &data);
        for (std::size_t i = 0; i < composition.size(); ++i)
            static_cast<double *>(data)[i] = composition[i];
        SafeArrayUnaccessData(x->parray);
        return S_OK;
    }
    HRESULT take(const VARIANT &values)
    {
        void *data = nullptr;
        SafeArrayAccessData(values.parray, &data);
        stored[storedCount++ % 16] = *static_cast<double *>(data);
        SafeArrayUnaccessData(values.parray);
        return S_OK;
    }
};
