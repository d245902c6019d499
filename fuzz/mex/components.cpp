#include "fuzz/mex/components.h"

#include "cape/com/bstr.h"
#include "cape/com/relay_interface.h"
#include "fuzz/material/calculations.h"
#include "fuzz/material/package_lists.h"
#include "fuzz/mex/session.h"

namespace fuzz {

namespace {

// A list for an out-parameter, wrong in some way if the input says so. A call that fails gives one, too, now and then.
HRESULT give(Input &input, HRESULT hr, ListAccount account, VARIANT *target)
{
    if (FAILED(hr) && input.chance(192))
        return hr;
    Spoil(input, account);
    *target = ListArgument(FromAnyBound(input, std::move(account))).detach();
    return hr;
}

template <std::size_t Count>
void giveAll(Input &input, HRESULT hr, const std::array<ListAccount, Count> &accounts, VARIANT *(&lists)[Count])
{
    for (std::size_t i = 0; i < Count; ++i)
        give(input, hr, accounts[i], lists[i]);
}

VARIANT anyVariant(Input &input)
{
    VARIANT value{};
    switch (input.below(6)) {
    case 0:
        value.vt = VT_R8;
        value.dblVal = Number(input);
        break;
    case 1: {
        value.vt = VT_BSTR;
        value.bstrVal = Bstr(PropertyWord(input)).detach();
        break;
    }
    case 2:
        value.vt = VT_I4;
        value.lVal = input.byte();
        break;
    case 3:
        return ListArgument(AnyAccount(input)).detach();
    case 4:
        value.vt = VT_BSTR; // a null one
        break;
    default:
        break;
    }
    return value;
}

// Constants come as VARIANTs, one for each compound.
VARIANT variantList(Input &input, std::size_t count)
{
    VARIANT list{};
    list.vt = VT_ARRAY | VT_VARIANT;
    list.parray = SafeArrayCreateVector(VT_VARIANT, LowerBound(input), static_cast<ULONG>(count));
    for (std::size_t i = 0; i < count; ++i)
        static_cast<VARIANT *>(list.parray->pvData)[i] = anyVariant(input);
    return list;
}

// What a QueryInterface that has nothing to give may leave and answer.
HRESULT refuseInterface(Input &input, void **object)
{
    switch (input.below(4)) {
    case 1:
        *object = reinterpret_cast<void *>(std::uintptr_t{16}); // not to be looked at
        return E_FAIL;
    case 2:
        *object = nullptr;
        return S_OK;
    default:
        *object = nullptr;
        return E_NOINTERFACE;
    }
}

} // namespace

AnyPackage::AnyPackage(Session &itsSession) : session(itsSession), contents(AnyContents(itsSession.input))
{
    client.package = &contents;
    session.latest = &contents;
}

HRESULT AnyPackage::query(REFIID iid, void **object)
{
    if (session.input.chance(2))
        return refuseInterface(session.input, object);
    return PackageObject::query(iid, object);
}

HRESULT AnyPackage::getCompoundList(VARIANT *(&lists)[6])
{
    const HRESULT hr = session.enter("GetCompoundList", this);
    if (FAILED(hr)) // what comes with a failure is not looked at, and not freed
        return hr;
    giveAll(session.input, hr, CompoundLists(contents), lists);
    return hr;
}

HRESULT AnyPackage::getPhaseList(VARIANT *(&lists)[3])
{
    const HRESULT hr = session.enter("GetPhaseList", this);
    giveAll(session.input, hr, PhaseLists(contents), lists);
    return hr;
}

HRESULT AnyPackage::getPropertyList(const char *method, VARIANT *list)
{
    const HRESULT hr = session.enter(method, this);
    ListAccount words = TextList({});
    for (unsigned i = session.input.below(5); i > 0; --i)
        words.texts.push_back(PropertyText(session.input));
    return give(session.input, hr, std::move(words), list);
}

HRESULT AnyPackage::getCompoundValues(const char *method, const VARIANT &properties, VARIANT *values)
{
    const HRESULT hr = session.enter(method, this);
    const std::size_t count = TextsOf(properties).size() * contents.compounds.size();
    if (SUCCEEDED(hr) && session.input.chance(96)) {
        *values = variantList(session.input, session.input.chance(16) ? count + 1 : count);
        return hr;
    }
    return give(session.input, hr, NumbersAccount(session.input, {count, count, count, contents.compounds.size()}),
                values);
}

HRESULT AnyPackage::calcSinglePhaseProp(const VARIANT &properties, BSTR label)
{
    const std::vector<WideString> names = TextsOf(properties);
    const MaybeText phase = label ? MaybeText(label) : MaybeText();
    const HRESULT hr = session.enter("CalcSinglePhaseProp", this);
    if (client.material)
        StoreSinglePhase(session.input, client, names, phase);
    return hr;
}

HRESULT AnyPackage::calcTwoPhaseProp(const VARIANT &properties, const VARIANT &labels)
{
    const std::vector<WideString> names = TextsOf(properties);
    const std::vector<WideString> pair = TextsOf(labels);
    const HRESULT hr = session.enter("CalcTwoPhaseProp", this);
    if (client.material)
        StoreTwoPhase(session.input, client, names, pair);
    return hr;
}

HRESULT AnyPackage::calcEquilibrium(const VARIANT &specification1, const VARIANT &specification2, BSTR)
{
    FUZZ_CHECK(TextsOf(specification1).size() == 3 && TextsOf(specification2).size() == 3);
    const HRESULT hr = session.enter("CalcEquilibrium", this);
    if (client.material)
        StoreEquilibrium(session.input, client);
    return hr;
}

HRESULT AnyPackage::checkSpecification(const char *method, VARIANT_BOOL *supported)
{
    *supported = session.input.chance(64) ? VARIANT_FALSE : VARIANT_TRUE;
    return session.enter(method, this);
}

HRESULT AnyPackage::setMaterial(IDispatch *material)
{
    client.material.queryFrom(material);
    FUZZ_CHECK(client.material);
    return session.enter("SetMaterial", this);
}

HRESULT AnyPackage::setContext(IDispatch *given)
{
    if (given) {
        given->AddRef();
        context.attach(given);
    }
    return session.enter("put_simulationContext", this);
}

HRESULT AnyPackage::getText(const char *method, BSTR *text)
{
    const HRESULT hr = session.enter(method, this);
    if (!session.input.chance(64))
        *text = Bstr(session.input.chance(32) ? WideString() : PropertyWord(session.input)).detach();
    return hr;
}

HRESULT AnyPackage::call(const char *method) { return session.enter(method, this); }

void AnyPackage::lastReferenceGone()
{
    client.material.reset();
    context.reset();
}

namespace {

template <class Interface> class ManagerFacet : public Facet<Interface> {
public:
    ManagerFacet(Component &component, Session &itsSession) : Facet<Interface>(component), session(itsSession) {}

protected:
    Session &session;
};

struct ManagerUtilities : ManagerFacet<ICapeUtilities> {
    using ManagerFacet::ManagerFacet;
    HRESULT get_parameters(IDispatch **) override { return E_NOTIMPL; }
    HRESULT put_simulationContext(IDispatch *) override { return session.enter("manager.put_simulationContext"); }
    HRESULT Initialize() override { return session.enter("manager.Initialize"); }
    HRESULT Terminate() override { return session.enter("manager.Terminate"); }
    HRESULT Edit() override { return E_NOTIMPL; }
};

struct PackageList : ManagerFacet<ICapeThermoPropertyPackageManager> {
    using ManagerFacet::ManagerFacet;
    HRESULT GetPropertyPackageList(VARIANT *names) override
    {
        return give(session.input, session.enter("GetPropertyPackageList"), TextList({u"First", u"Second"}), names);
    }
    HRESULT GetPropertyPackage(BSTR, IDispatch **package) override
    {
        const HRESULT hr = session.enter("GetPropertyPackage");
        if (FAILED(hr))
            return hr;
        return MakeComponent(session, ComponentKind::package, InterfaceId<IDispatch>,
                             reinterpret_cast<void **>(package));
    }
};

class AnyManager final : public Component {
public:
    explicit AnyManager(Session &itsSession) : session(itsSession) {}

    HRESULT query(REFIID iid, void **object) override
    {
        *object = nullptr;
        if (session.input.chance(2))
            return refuseInterface(session.input, object);
        if (iid == InterfaceId<ICapeUtilities>)
            *object = static_cast<ICapeUtilities *>(&utilities);
        else if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> ||
                 iid == InterfaceId<ICapeThermoPropertyPackageManager>)
            *object = static_cast<ICapeThermoPropertyPackageManager *>(&packages);
        else
            return E_NOINTERFACE;
        addReference();
        return S_OK;
    }

private:
    Session &session;
    ManagerUtilities utilities{*this, session};
    PackageList packages{*this, session};
};

struct RelayFacet : ManagerFacet<IVerdanth6432Relay> {
    using ManagerFacet::ManagerFacet;
    HRESULT CreateObject32(BSTR, IUnknown **object) override
    {
        const HRESULT hr = session.enter("CreateObject32");
        return FAILED(hr) ? hr
                          : MakeComponent(session, ComponentKind::package, InterfaceId<IUnknown>,
                                          reinterpret_cast<void **>(object));
    }
};

class AnyRelay final : public Component {
public:
    explicit AnyRelay(Session &session) : facet(*this, session) {}

    HRESULT query(REFIID, void **object) override
    {
        *object = static_cast<IVerdanth6432Relay *>(&facet);
        addReference();
        return S_OK;
    }

private:
    RelayFacet facet;
};

} // namespace

HRESULT MakeComponent(Session &session, ComponentKind kind, REFIID iid, void **object)
{
    *object = nullptr;
    const HRESULT hr = session.enter("created");
    if (FAILED(hr))
        return hr;
    Component *made = nullptr;
    if (kind == ComponentKind::package)
        made = &session.make<AnyPackage>();
    else if (kind == ComponentKind::manager)
        made = &session.make<AnyManager>();
    else
        made = &session.make<AnyRelay>();
    return made->query(iid, object);
}

} // namespace fuzz
