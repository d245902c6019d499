#include "tests/support/scripted_object.h"

#include <algorithm>

namespace support {

ErrorWords Description(AnyText text)
{
    ErrorWords words;
    words.user = true;
    words.description = text.wide;
    return words;
}

ErrorWords ErrorName(AnyText text)
{
    ErrorWords words;
    words.root = true;
    words.name = text.wide;
    return words;
}

ComponentScript::~ComponentScript() = default;

void ComponentScript::refuse(REFIID iid, HRESULT result) { refusals.emplace_back(iid, result); }

void ComponentScript::answer(const std::string &method, HRESULT result, int call) { answers[method][call] = result; }

int ComponentScript::calls(const std::string &method) const
{
    const auto found = callCounts.find(method);
    return found == callCounts.end() ? 0 : found->second;
}

int ComponentScript::references() const
{
    int sum = 0;
    for (const auto &object : objects)
        sum += object->references();
    return sum;
}

int ComponentScript::references(REFIID iid) const
{
    int sum = 0;
    for (const auto &object : objects)
        sum += object->references(iid);
    return sum;
}

HRESULT ComponentScript::create(REFIID iid, void **object)
{
    *object = nullptr;
    if (log)
        log->push_back(label + ".created");
    const HRESULT hr = resultOf("created", ++callCounts["created"]);
    if (FAILED(hr))
        return hr;
    objects.push_back(makeObject());
    return objects.back()->query(IID{}, iid, object);
}

HRESULT ComponentScript::resultOf(const std::string &method, int call) const
{
    if (failingMethod && failingMethod->which && failingMethod->which->strikes()) {
        failingMethod->method = label + "." + method;
        return failingMethod->result;
    }
    const auto found = answers.find(method);
    if (found == answers.end())
        return S_OK;
    const auto exact = found->second.find(call);
    if (exact != found->second.end())
        return exact->second;
    const auto always = found->second.find(0);
    return always == found->second.end() ? S_OK : always->second;
}

std::optional<HRESULT> ComponentScript::refusal(REFIID iid) const
{
    for (const auto &[refused, result] : refusals)
        if (refused == iid)
            return result;
    return std::nullopt;
}

FacetBase::FacetBase(ScriptedObject &owner, REFIID interfaceId) : object(owner), iid(interfaceId)
{
    owner.facets.push_back(this);
}

bool ScriptedObject::leadsToWords(REFIID from, REFIID wanted) const
{
    const ErrorWords &words = script.words;
    const bool present = wanted == InterfaceId<ECapeUser> ? words.user : words.root;
    return present && (!words.onlyFrom || *words.onlyFrom == from);
}

HRESULT ScriptedObject::query(REFIID from, REFIID wanted, void **object)
{
    *object = nullptr;
    if (released)
        script.misuses.push_back(script.label + ".QueryInterface after its release");
    if (script.failingQuery && script.failingQuery->which && script.failingQuery->which->strikes()) {
        script.failingQuery->method = script.label;
        script.failingQuery->wanted = wanted;
        return script.failingQuery->result;
    }
    if (const std::optional<HRESULT> refused = script.refusal(wanted)) {
        if (FAILED(*refused))
            LeaveRubbish(object);
        return *refused;
    }
    if (wanted == InterfaceId<IPersistStreamInit> && !script.persistent)
        return E_NOINTERFACE;
    if ((wanted == InterfaceId<ECapeUser> || wanted == InterfaceId<ECapeRoot>)&&!leadsToWords(from, wanted))
        return E_NOINTERFACE;
    const bool identity = wanted == InterfaceId<IUnknown> || wanted == InterfaceId<IDispatch>;
    for (FacetBase *facet : facets)
        if (identity || facet->iid == wanted) {
            *object = facet->pointer();
            addReference(*facet);
            return S_OK;
        }
    return E_NOINTERFACE;
}

ULONG ScriptedObject::addReference(FacetBase &facet)
{
    if (released)
        script.misuses.push_back(script.label + ".AddRef after its release");
    ++facet.references;
    return static_cast<ULONG>(++total);
}

ULONG ScriptedObject::releaseReference(FacetBase &facet)
{
    if (facet.references == 0) {
        script.misuses.push_back(script.label + ".Release without a reference");
        return static_cast<ULONG>(total);
    }
    if (--facet.references == 0 && script.onInterfaceReleased)
        script.onInterfaceReleased(facet.iid);
    if (--total == 0) {
        released = true;
        if (script.log)
            script.log->push_back(script.label + ".released");
        script.context.reset();
        script.objectReleased();
    }
    return static_cast<ULONG>(total);
}

int ScriptedObject::references(REFIID iid) const
{
    int sum = 0;
    for (const FacetBase *facet : facets)
        if (facet->iid == iid)
            sum += facet->references;
    return sum;
}

HRESULT ScriptedObject::enter(const char *method)
{
    if (released)
        script.misuses.push_back(script.label + "." + method + " after its release");
    if (script.log)
        script.log->push_back(script.label + "." + method);
    const int call = ++script.callCounts[method];
    if (script.onCall)
        script.onCall(method);
    return script.resultOf(method, call);
}

} // namespace support
