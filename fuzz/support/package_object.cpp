#include "fuzz/support/package_object.h"

namespace fuzz {

namespace {

template <class Interface> class PackageFacet : public Facet<Interface> {
public:
    explicit PackageFacet(PackageObject &object) : Facet<Interface>(object), package(object) {}

protected:
    PackageObject &package;
};

struct Identification : PackageFacet<ICapeIdentification> {
    using PackageFacet::PackageFacet;
    HRESULT get_ComponentName(BSTR *name) override { return package.getText("get_ComponentName", name); }
    HRESULT put_ComponentName(BSTR) override { return E_NOTIMPL; }
    HRESULT get_ComponentDescription(BSTR *text) override { return package.getText("get_ComponentDescription", text); }
    HRESULT put_ComponentDescription(BSTR) override { return E_NOTIMPL; }
};

struct Utilities : PackageFacet<ICapeUtilities> {
    using PackageFacet::PackageFacet;
    HRESULT get_parameters(IDispatch **) override { return E_NOTIMPL; }
    HRESULT put_simulationContext(IDispatch *context) override { return package.setContext(context); }
    HRESULT Initialize() override { return package.call("Initialize"); }
    HRESULT Terminate() override { return package.call("Terminate"); }
    HRESULT Edit() override { return E_NOTIMPL; }
};

struct Compounds : PackageFacet<ICapeThermoCompounds> {
    using PackageFacet::PackageFacet;
    HRESULT GetCompoundConstant(VARIANT properties, VARIANT, VARIANT *values) override
    {
        return package.getCompoundValues("GetCompoundConstant", properties, values);
    }
    HRESULT GetCompoundList(VARIANT *ids, VARIANT *formulae, VARIANT *names, VARIANT *boilingPoints, VARIANT *weights,
                            VARIANT *casNumbers) override
    {
        VARIANT *lists[] = {ids, formulae, names, boilingPoints, weights, casNumbers};
        return package.getCompoundList(lists);
    }
    HRESULT GetConstPropList(VARIANT *list) override { return package.getPropertyList("GetConstPropList", list); }
    HRESULT GetNumCompounds(LONG *) override { return E_NOTIMPL; }
    HRESULT GetPDependentProperty(VARIANT properties, double, VARIANT, VARIANT *values) override
    {
        return package.getCompoundValues("GetPDependentProperty", properties, values);
    }
    HRESULT GetPDependentPropList(VARIANT *list) override
    {
        return package.getPropertyList("GetPDependentPropList", list);
    }
    HRESULT GetTDependentProperty(VARIANT properties, double, VARIANT, VARIANT *values) override
    {
        return package.getCompoundValues("GetTDependentProperty", properties, values);
    }
    HRESULT GetTDependentPropList(VARIANT *list) override
    {
        return package.getPropertyList("GetTDependentPropList", list);
    }
};

struct Phases : PackageFacet<ICapeThermoPhases> {
    using PackageFacet::PackageFacet;
    HRESULT GetNumPhases(LONG *) override { return E_NOTIMPL; }
    HRESULT GetPhaseInfo(BSTR, BSTR, VARIANT *) override { return E_NOTIMPL; }
    HRESULT GetPhaseList(VARIANT *labels, VARIANT *states, VARIANT *keyCompounds) override
    {
        VARIANT *lists[] = {labels, states, keyCompounds};
        return package.getPhaseList(lists);
    }
};

struct PropertyRoutine : PackageFacet<ICapeThermoPropertyRoutine> {
    using PackageFacet::PackageFacet;
    HRESULT CalcAndGetLnPhi(BSTR, double, double, VARIANT, INT, VARIANT *, VARIANT *, VARIANT *, VARIANT *) override
    {
        return E_NOTIMPL;
    }
    HRESULT CalcSinglePhaseProp(VARIANT properties, BSTR label) override
    {
        return package.calcSinglePhaseProp(properties, label);
    }
    HRESULT CalcTwoPhaseProp(VARIANT properties, VARIANT labels) override
    {
        return package.calcTwoPhaseProp(properties, labels);
    }
    HRESULT CheckSinglePhasePropSpec(BSTR, BSTR, VARIANT_BOOL *valid) override
    {
        return package.checkSpecification("CheckSinglePhasePropSpec", valid);
    }
    HRESULT CheckTwoPhasePropSpec(BSTR, VARIANT, VARIANT_BOOL *valid) override
    {
        return package.checkSpecification("CheckTwoPhasePropSpec", valid);
    }
    HRESULT GetSinglePhasePropList(VARIANT *list) override
    {
        return package.getPropertyList("GetSinglePhasePropList", list);
    }
    HRESULT GetTwoPhasePropList(VARIANT *list) override { return package.getPropertyList("GetTwoPhasePropList", list); }
};

struct EquilibriumRoutine : PackageFacet<ICapeThermoEquilibriumRoutine> {
    using PackageFacet::PackageFacet;
    HRESULT CalcEquilibrium(VARIANT specification1, VARIANT specification2, BSTR solutionType) override
    {
        return package.calcEquilibrium(specification1, specification2, solutionType);
    }
    HRESULT CheckEquilibriumSpec(VARIANT, VARIANT, BSTR, VARIANT_BOOL *supported) override
    {
        return package.checkSpecification("CheckEquilibriumSpec", supported);
    }
};

struct MaterialContext : PackageFacet<ICapeThermoMaterialContext> {
    using PackageFacet::PackageFacet;
    HRESULT SetMaterial(IDispatch *material) override { return package.setMaterial(material); }
    HRESULT UnsetMaterial() override { return package.call("UnsetMaterial"); }
};

struct ErrorUser : PackageFacet<ECapeUser> {
    using PackageFacet::PackageFacet;
    HRESULT get_code(LONG *) override { return E_NOTIMPL; }
    HRESULT get_description(BSTR *text) override { return package.getText("get_description", text); }
    HRESULT get_scope(BSTR *) override { return E_NOTIMPL; }
    HRESULT get_interfaceName(BSTR *) override { return E_NOTIMPL; }
    HRESULT get_operation(BSTR *) override { return E_NOTIMPL; }
    HRESULT get_moreInfo(BSTR *) override { return E_NOTIMPL; }
};

struct ErrorRoot : PackageFacet<ECapeRoot> {
    using PackageFacet::PackageFacet;
    HRESULT get_name(BSTR *text) override { return package.getText("get_name", text); }
};

template <class Interface> bool give(REFIID iid, PackageFacet<Interface> &facet, void **object)
{
    if (iid == InterfaceId<Interface>)
        *object = static_cast<Interface *>(&facet);
    return *object != nullptr;
}

} // namespace

struct PackageObject::Facets {
    explicit Facets(PackageObject &object)
        : identification(object), utilities(object), compounds(object), phases(object), properties(object),
          equilibria(object), context(object), errorUser(object), errorRoot(object)
    {
    }
    Identification identification;
    Utilities utilities;
    Compounds compounds;
    Phases phases;
    PropertyRoutine properties;
    EquilibriumRoutine equilibria;
    MaterialContext context;
    ErrorUser errorUser;
    ErrorRoot errorRoot;
};

PackageObject::PackageObject() : facets(std::make_unique<Facets>(*this)) {}

PackageObject::~PackageObject() = default;

HRESULT PackageObject::query(REFIID iid, void **object)
{
    *object = nullptr;
    Facets &f = *facets;
    if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch>)
        *object = static_cast<IDispatch *>(&f.identification);
    const bool given = *object || give(iid, f.identification, object) || give(iid, f.utilities, object) ||
                       give(iid, f.compounds, object) || give(iid, f.phases, object) ||
                       give(iid, f.properties, object) || give(iid, f.equilibria, object) ||
                       give(iid, f.context, object) || give(iid, f.errorUser, object) || give(iid, f.errorRoot, object);
    if (!given)
        return E_NOINTERFACE;
    addReference();
    return S_OK;
}

HRESULT PackageObject::getPropertyList(const char *, VARIANT *) { return S_OK; }

HRESULT PackageObject::getCompoundValues(const char *, const VARIANT &, VARIANT *) { return S_OK; }

HRESULT PackageObject::calcSinglePhaseProp(const VARIANT &, BSTR) { return S_OK; }

HRESULT PackageObject::calcTwoPhaseProp(const VARIANT &, const VARIANT &) { return S_OK; }

HRESULT PackageObject::calcEquilibrium(const VARIANT &, const VARIANT &, BSTR) { return S_OK; }

HRESULT PackageObject::checkSpecification(const char *, VARIANT_BOOL *supported)
{
    *supported = VARIANT_TRUE;
    return S_OK;
}

HRESULT PackageObject::setMaterial(IDispatch *) { return S_OK; }

HRESULT PackageObject::setContext(IDispatch *) { return S_OK; }

HRESULT PackageObject::getText(const char *, BSTR *) { return S_OK; }

HRESULT PackageObject::call(const char *) { return S_OK; }

} // namespace fuzz
