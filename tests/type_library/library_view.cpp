#include "tests/type_library/library_view.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::string narrow(BSTR text)
{
    const std::string result(text, text + SysStringLen(text)); // names are ASCII
    SysFreeString(text);
    return result;
}

std::string nameOfType(ITypeInfo *information)
{
    BSTR name = nullptr;
    EXPECT_EQ(information->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr), S_OK);
    return narrow(name);
}

TYPEATTR attributesOf(ITypeInfo *information)
{
    TYPEATTR *attributes = nullptr;
    EXPECT_EQ(information->GetTypeAttr(&attributes), S_OK);
    const TYPEATTR copy = *attributes;
    information->ReleaseTypeAttr(attributes);
    return copy;
}

ComPointer<ITypeInfo> referenced(ITypeInfo *information, HREFTYPE reference)
{
    ComPointer<ITypeInfo> result;
    EXPECT_EQ(information->GetRefTypeInfo(reference, result.out()), S_OK);
    return result;
}

ComPointer<ITypeInfo> implemented(ITypeInfo *information, UINT index)
{
    HREFTYPE reference = 0;
    EXPECT_EQ(information->GetRefTypeOfImplType(index, &reference), S_OK);
    return referenced(information, reference);
}

std::string typeText(ITypeInfo *information, const TYPEDESC &type)
{
    switch (type.vt) {
    case VT_PTR:
        return typeText(information, *type.lptdesc) + "*";
    case VT_USERDEFINED:
        return nameOfType(referenced(information, type.hreftype).get());
    case VT_I2:
        return "short";
    case VT_I4:
        return "long";
    case VT_I8:
        return "hyper";
    case VT_INT:
        return "int";
    case VT_R8:
        return "double";
    case VT_BOOL:
        return "VARIANT_BOOL";
    case VT_BSTR:
        return "BSTR";
    case VT_VARIANT:
        return "VARIANT";
    case VT_DISPATCH:
        return "IDispatch*";
    case VT_UNKNOWN:
        return "IUnknown*";
    case VT_HRESULT:
        return "HRESULT";
    default:
        return "type " + std::to_string(type.vt);
    }
}

std::string directionText(USHORT flags)
{
    switch (flags & (PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) {
    case PARAMFLAG_FIN:
        return "in";
    case PARAMFLAG_FIN | PARAMFLAG_FOUT:
        return "inout";
    case PARAMFLAG_FOUT | PARAMFLAG_FRETVAL:
        return "retval";
    default:
        return "flags " + std::to_string(flags);
    }
}

std::string kindText(INVOKEKIND kind)
{
    return kind == INVOKE_FUNC          ? "method"
           : kind == INVOKE_PROPERTYGET ? "get"
           : kind == INVOKE_PROPERTYPUT ? "put"
                                        : "other";
}

shape::Member memberAt(ITypeInfo *information, UINT index)
{
    FUNCDESC *function = nullptr;
    EXPECT_EQ(information->GetFuncDesc(index, &function), S_OK);
    shape::Member member;
    member.slot = static_cast<std::size_t>(function->oVft) / sizeof(void *);
    member.id = function->memid;
    member.kind = kindText(function->invkind);
    BSTR name = nullptr;
    EXPECT_EQ(information->GetDocumentation(function->memid, &name, nullptr, nullptr, nullptr), S_OK);
    member.name = narrow(name);
    for (SHORT i = 0; i < function->cParams; ++i) {
        const ELEMDESC &parameter = function->lprgelemdescParam[i];
        member.parameters.push_back(directionText(parameter.paramdesc.wParamFlags) + " " +
                                    typeText(information, parameter.tdesc));
    }
    EXPECT_EQ(function->callconv, CC_STDCALL) << member.name;
    EXPECT_EQ(typeText(information, function->elemdescFunc.tdesc), "HRESULT") << member.name;
    EXPECT_EQ(function->wFuncFlags, 0) << member.name;
    information->ReleaseFuncDesc(function);
    return member;
}

} // namespace

LibraryView::LibraryView(LPCWSTR path) { EXPECT_EQ(LoadTypeLibEx(path, REGKIND_NONE, library.out()), S_OK); }

std::string LibraryView::name() const
{
    BSTR name = nullptr;
    EXPECT_EQ(library->GetDocumentation(-1, &name, nullptr, nullptr, nullptr), S_OK);
    return narrow(name);
}

std::string LibraryView::helpText() const
{
    BSTR text = nullptr;
    EXPECT_EQ(library->GetDocumentation(-1, nullptr, &text, nullptr, nullptr), S_OK);
    return narrow(text);
}

TLIBATTR LibraryView::attributes() const
{
    TLIBATTR *attributes = nullptr;
    EXPECT_EQ(library->GetLibAttr(&attributes), S_OK);
    const TLIBATTR copy = *attributes;
    library->ReleaseTLibAttr(attributes);
    return copy;
}

shape::Interface LibraryView::interfaceOf(REFIID iid) const
{
    shape::Interface result;
    ComPointer<ITypeInfo> dispatch;
    EXPECT_EQ(library->GetTypeInfoOfGuid(iid, dispatch.out()), S_OK);
    if (!dispatch)
        return result;
    TYPEATTR attributes = attributesOf(dispatch.get());
    EXPECT_EQ(attributes.typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes.wTypeFlags & ~TYPEFLAG_FOLEAUTOMATION, TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE);

    // Behind a dual interface lies the description of its table of functions.
    const ComPointer<ITypeInfo> table = implemented(dispatch.get(), static_cast<UINT>(-1));
    attributes = attributesOf(table.get());
    EXPECT_EQ(attributes.typekind, TKIND_INTERFACE);
    EXPECT_NE(attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION, 0) << "or no call would get out of the process";
    EXPECT_EQ(nameOfType(implemented(table.get(), 0).get()), "IDispatch");
    result.name = nameOfType(table.get());
    result.iid = attributes.guid;
    for (UINT i = 0; i < attributes.cFuncs; ++i)
        result.members.push_back(memberAt(table.get(), i));
    return result;
}

std::map<std::string, std::string> LibraryView::interfaces() const
{
    std::map<std::string, std::string> result;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> information;
        EXPECT_EQ(library->GetTypeInfo(i, information.out()), S_OK);
        const TYPEATTR attributes = attributesOf(information.get());
        if (attributes.typekind == TKIND_DISPATCH || attributes.typekind == TKIND_INTERFACE)
            result[nameOfType(information.get())] = identifierText(attributes.guid);
    }
    return result;
}

std::map<std::string, std::map<std::string, long>> LibraryView::enumerations() const
{
    std::map<std::string, std::map<std::string, long>> result;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> information;
        EXPECT_EQ(library->GetTypeInfo(i, information.out()), S_OK);
        const TYPEATTR attributes = attributesOf(information.get());
        if (attributes.typekind != TKIND_ENUM)
            continue;
        std::map<std::string, long> &values = result[nameOfType(information.get())];
        for (UINT k = 0; k < attributes.cVars; ++k) {
            VARDESC *value = nullptr;
            EXPECT_EQ(information->GetVarDesc(k, &value), S_OK);
            BSTR name = nullptr;
            EXPECT_EQ(information->GetDocumentation(value->memid, &name, nullptr, nullptr, nullptr), S_OK);
            values[narrow(name)] = value->lpvarValue->lVal;
            information->ReleaseVarDesc(value);
        }
    }
    return result;
}

std::map<std::string, std::string> LibraryView::aliases() const
{
    std::map<std::string, std::string> result;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> information;
        EXPECT_EQ(library->GetTypeInfo(i, information.out()), S_OK);
        const TYPEATTR attributes = attributesOf(information.get());
        if (attributes.typekind == TKIND_ALIAS)
            result[nameOfType(information.get())] =
                typeText(information.get(), attributes.tdescAlias) + " " + identifierText(attributes.guid);
    }
    return result;
}

std::vector<std::string> LibraryView::interfacesOfClass(REFCLSID classId) const
{
    std::vector<std::string> result;
    ComPointer<ITypeInfo> information;
    EXPECT_EQ(library->GetTypeInfoOfGuid(classId, information.out()), S_OK);
    if (!information)
        return result;
    const TYPEATTR attributes = attributesOf(information.get());
    EXPECT_EQ(attributes.typekind, TKIND_COCLASS);
    for (UINT i = 0; i < attributes.cImplTypes; ++i) {
        INT flags = 0;
        EXPECT_EQ(information->GetImplTypeFlags(i, &flags), S_OK);
        const std::string name = nameOfType(implemented(information.get(), i).get());
        result.insert(flags & IMPLTYPEFLAG_FDEFAULT ? result.begin() : result.end(), name);
    }
    return result;
}

std::string LibraryView::nameOf(REFGUID id) const
{
    ComPointer<ITypeInfo> information;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, information.out()), S_OK);
    return information ? nameOfType(information.get()) : "";
}

std::string identifierText(REFGUID id)
{
    OLECHAR text[40] = {};
    StringFromGUID2(id, text, 40);
    return std::string(text, text + 38);
}
