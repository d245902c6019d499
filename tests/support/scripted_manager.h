// The scripted property package manager, and the relay that a test puts in place of the real one.
#pragma once

#include "cape/com/relay_interface.h"
#include "tests/support/scripted_package.h"

namespace support {

class ManagerScript : public ComponentScript {
public:
    ManagerScript();
    ~ManagerScript() override;

    Variant packageNames; // given as it is

    // What GetPropertyPackage makes for a name; another name gets ECapeInvalidArgumentHR.
    void offer(AnyText name, PackageScript &package); // enters no name into packageNames
    std::vector<WideString> requestedNames;           // of GetPropertyPackage, in order

protected:
    std::unique_ptr<ScriptedObject> makeObject() override;

private:
    friend class ManagerFacet;
    std::vector<std::pair<WideString, PackageScript *>> offers;
};

// As the relay registers itself.
inline constexpr CLSID relayClass = {0xE3F8AF5B, 0xDE4E, 0x4FE0, {0xB2, 0x43, 0x0F, 0xDB, 0x61, 0x73, 0xB5, 0xE8}};

class RelayScript : public ComponentScript {
public:
    RelayScript();
    ~RelayScript() override;

    // What CreateObject32 makes for a class; another class gets REGDB_E_CLASSNOTREG.
    void offer(AnyText classIdText, ComponentScript &component);
    std::vector<WideString> requestedClasses; // in order

protected:
    std::unique_ptr<ScriptedObject> makeObject() override;

private:
    friend class RelayFacet;
    std::vector<std::pair<WideString, ComponentScript *>> offers;
};

} // namespace support
