// The interfaces that managers, packages and the relay have alike.
#include "tests/support/scripted_object.h"

namespace support {

namespace {

void give(const std::optional<WideString> &text, BSTR *result)
{
    if (text)
        *result = SysAllocStringLen(text->c_str(), static_cast<UINT>(text->size()));
}

} // namespace

HRESULT IdentificationFacet::get_ComponentName(BSTR *name)
{
    LeaveRubbish(name);
    const HRESULT hr = object.enter("get_ComponentName");
    if (SUCCEEDED(hr))
        give(object.script.componentName, name);
    return hr;
}

HRESULT IdentificationFacet::put_ComponentName(BSTR)
{
    const HRESULT hr = object.enter("put_ComponentName");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT IdentificationFacet::get_ComponentDescription(BSTR *description)
{
    const HRESULT hr = object.enter("get_ComponentDescription");
    if (SUCCEEDED(hr))
        give(object.script.componentName, description);
    return hr;
}

HRESULT IdentificationFacet::put_ComponentDescription(BSTR)
{
    const HRESULT hr = object.enter("put_ComponentDescription");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT UtilitiesFacet::get_parameters(IDispatch **parameters)
{
    *parameters = nullptr;
    const HRESULT hr = object.enter("get_parameters");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT UtilitiesFacet::put_simulationContext(IDispatch *context)
{
    const HRESULT hr = object.enter("put_simulationContext");
    if (FAILED(hr) || !context)
        return hr;
    context->AddRef();
    object.script.context.attach(context);
    if (object.script.keepsContext) {
        context->AddRef();
        object.script.keptContext.attach(context);
    }
    return hr;
}

HRESULT UtilitiesFacet::Initialize() { return object.enter("Initialize"); }

HRESULT UtilitiesFacet::Terminate() { return object.enter("Terminate"); }

HRESULT UtilitiesFacet::Edit()
{
    const HRESULT hr = object.enter("Edit");
    return FAILED(hr) ? hr : E_NOTIMPL;
}

HRESULT PersistFacet::GetClassID(CLSID *classId)
{
    *classId = {};
    return object.enter("GetClassID");
}

HRESULT PersistFacet::IsDirty() { return object.enter("IsDirty"); }

HRESULT PersistFacet::Load(IStream *) { return object.enter("Load"); }

HRESULT PersistFacet::Save(IStream *, BOOL) { return object.enter("Save"); }

HRESULT PersistFacet::GetSizeMax(ULARGE_INTEGER *size)
{
    size->QuadPart = 0;
    return object.enter("GetSizeMax");
}

HRESULT PersistFacet::InitNew() { return object.enter("InitNew"); }

HRESULT ErrorUserFacet::get_code(LONG *code)
{
    *code = 0;
    return object.enter("get_code");
}

HRESULT ErrorUserFacet::get_description(BSTR *description)
{
    give(object.script.words.description, description);
    return object.enter("get_description");
}

HRESULT ErrorUserFacet::get_scope(BSTR *scope)
{
    give(Wide("scripted scope"), scope);
    return object.enter("get_scope");
}

HRESULT ErrorUserFacet::get_interfaceName(BSTR *name)
{
    give(Wide("scripted interface"), name);
    return object.enter("get_interfaceName");
}

HRESULT ErrorUserFacet::get_operation(BSTR *operation)
{
    give(Wide("scripted operation"), operation);
    return object.enter("get_operation");
}

HRESULT ErrorUserFacet::get_moreInfo(BSTR *info)
{
    give(Wide("scripted information"), info);
    return object.enter("get_moreInfo");
}

HRESULT ErrorRootFacet::get_name(BSTR *name)
{
    give(object.script.words.name, name);
    return object.enter("get_name");
}

} // namespace support
