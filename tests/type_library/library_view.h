// A type library read from a file, in words that can be compared with declarations.
#pragma once

#include "cape/com/com_pointer.h"
#include "tests/type_library/interface_shape.h"

#include <map>

class LibraryView {
public:
    explicit LibraryView(LPCWSTR path); // the test fails when it can't be loaded

    std::string name() const;
    std::string helpText() const;
    TLIBATTR attributes() const;

    // The dual interface of that identifier. Fails the test where the library says something else than that of all of
    // its members: standard calls with an HRESULT as result, derived from IDispatch.
    shape::Interface interfaceOf(REFIID iid) const;

    std::map<std::string, std::string> interfaces() const; // names, with their identifiers in braces
    std::map<std::string, std::map<std::string, long>> enumerations() const;
    std::map<std::string, std::string> aliases() const; // names, with what they stand for

    // The interfaces of a class by name, the default one first.
    std::vector<std::string> interfacesOfClass(REFCLSID classId) const;
    std::string nameOf(REFGUID id) const;

private:
    ComPointer<ITypeLib> library;
};

std::string identifierText(REFGUID id); // in braces
