// What an interface looks like to a caller, in words that can be compared: once as the compiler sees the C++
// declaration, once as a type library describes it.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <cstring>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

class CMaterialObject;

namespace shape {

// One member: "slot 7 id 1 get name(retval BSTR*)".
struct Member {
    std::size_t slot = 0; // in the table of virtual functions, those of IDispatch counted
    DISPID id = 0;
    std::string kind; // "method", "get" or "put"
    std::string name;
    std::vector<std::string> parameters; // direction and type

    bool operator==(const Member &) const = default;
    friend void PrintTo(const Member &member, std::ostream *stream)
    {
        *stream << "slot " << member.slot << " id " << member.id << " " << member.kind << " " << member.name << "(";
        for (const std::string &parameter : member.parameters)
            *stream << parameter << (&parameter == &member.parameters.back() ? "" : ", ");
        *stream << ")";
    }
};

struct Interface {
    std::string name;
    IID iid{};
    std::size_t slots = 0; // in the table of virtual functions; a type library does not say
    std::vector<Member> members;

    friend void PrintTo(const Interface &declared, std::ostream *stream) { *stream << declared.name; }
};

// The names that types go by; VARIANT_BOOL is a short to the compiler, and no declaration uses a plain one.
template <class Type> struct TypeName;
template <> struct TypeName<OLECHAR *> {
    static std::string text() { return "BSTR"; }
};
template <> struct TypeName<VARIANT> {
    static std::string text() { return "VARIANT"; }
};
template <> struct TypeName<double> {
    static std::string text() { return "double"; }
};
template <> struct TypeName<long> {
    static std::string text() { return "long"; }
};
template <> struct TypeName<int> {
    static std::string text() { return "int"; }
};
template <> struct TypeName<VARIANT_BOOL> {
    static std::string text() { return "VARIANT_BOOL"; }
};
template <> struct TypeName<IDispatch> {
    static std::string text() { return "IDispatch"; }
};
template <> struct TypeName<IUnknown> {
    static std::string text() { return "IUnknown"; }
};
template <> struct TypeName<CMaterialObject *> { // an address of this process, to a type library a number
    static std::string text() { return "hyper"; }
};
template <class Type> struct TypeName<Type *> {
    static std::string text() { return TypeName<Type>::text() + "*"; }
};

template <class Function> struct Parameters;
template <class Interface, class... Types> struct Parameters<HRESULT (STDMETHODCALLTYPE Interface::*)(Types...)> {
    static std::vector<std::string> types() { return {TypeName<Types>::text()...}; }
};

// Place of a virtual function in the table of its class: this compiler's pointers to virtual members hold the offset
// there, and one.
template <class Function> std::size_t slotOf(Function member)
{
    std::uintptr_t word = 0;
    static_assert(sizeof member >= sizeof word);
    std::memcpy(&word, &member, sizeof word);
    return (word - 1) / sizeof(void *);
}

// `directions` has one word for each parameter: in, inout or retval.
template <auto member> Member memberOf(const std::string &declaredName, DISPID id, const std::string &directions = "")
{
    Member result;
    result.slot = slotOf(member);
    result.id = id;
    result.kind = declaredName.starts_with("get_") ? "get" : declaredName.starts_with("put_") ? "put" : "method";
    result.name = result.kind == "method" ? declaredName : declaredName.substr(4);
    std::istringstream words(directions);
    for (const std::string &type : Parameters<decltype(member)>::types()) {
        std::string direction;
        words >> direction;
        result.parameters.push_back(direction + " " + type);
    }
    return result;
}

template <class Declared> struct Extended : Declared {
    virtual void next() = 0; // takes the first slot that is free
};

template <class Declared> Interface interfaceOf(const std::string &name, std::vector<Member> members)
{
    return {name, InterfaceId<Declared>, slotOf(&Extended<Declared>::next), std::move(members)};
}

} // namespace shape

#define MEMBER(Interface, name, ...) shape::memberOf<&Interface::name>(#name, __VA_ARGS__)
#define DECLARED(Interface, ...) shape::interfaceOf<Interface>(#Interface, {__VA_ARGS__})
