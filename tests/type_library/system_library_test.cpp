// The type library that Verdanth.mexw64 carries.
#include "material/material_object.h"
#include "packages/simulation_context.h"
#include "tests/type_library/library_view.h"

#include <gtest/gtest.h>

namespace {

const LibraryView &systemLibrary()
{
    static const LibraryView view(OLESTR("Verdanth.mexw64"));
    return view;
}

} // namespace

TEST(SystemLibrary, IsAResourceOfTheLibrary)
{
    const TLIBATTR attributes = systemLibrary().attributes();
    EXPECT_EQ(identifierText(attributes.guid), identifierText(LIBID_Verdanth));
    EXPECT_EQ(attributes.wMajorVerNum, 1);
    EXPECT_EQ(attributes.wMinorVerNum, 1);
    EXPECT_EQ(attributes.syskind, SYS_WIN64);
    EXPECT_EQ(systemLibrary().name(), "Verdanth");
}

TEST(SystemLibrary, DescribesThePrivateInterfaceAsItIsDeclared)
{
    const shape::Interface declared = DECLARED(IMaterial, MEMBER(IMaterial, GetMaterialObject, 1, "retval"));
    const shape::Interface described = systemLibrary().interfaceOf(InterfaceId<IMaterial>);
    EXPECT_EQ(described.name, "IMaterial");
    EXPECT_EQ(identifierText(described.iid), "{E2484BD9-413A-4855-95BF-CC72E1AFC4D2}");
    EXPECT_EQ(described.members, declared.members);
    EXPECT_EQ(declared.slots, 8u);
}

TEST(SystemLibrary, NamesTheTwoClasses)
{
    EXPECT_EQ(systemLibrary().nameOf(CLSID_MaterialObject), "MaterialObject");
    EXPECT_EQ(systemLibrary().interfacesOfClass(CLSID_MaterialObject), std::vector<std::string>{"IMaterial"});
    EXPECT_EQ(systemLibrary().nameOf(CLSID_SimulationContext), "SimulationContext");
    EXPECT_EQ(systemLibrary().interfacesOfClass(CLSID_SimulationContext), std::vector<std::string>());
}
