// The type library that Verdanth.mexw64 carries.
#include "material/material_object.h"
#include "packages/simulation_context.h"
#include "tests/type_library/library_view.h"

#include <gtest/gtest.h>

namespace {

const LibraryView &library()
{
    static const LibraryView view(OLESTR("Verdanth.mexw64"));
    return view;
}

} // namespace

TEST(SystemLibrary, IsAResourceOfTheLibrary)
{
    const TLIBATTR attributes = library().attributes();
    EXPECT_EQ(identifierText(attributes.guid), identifierText(LIBID_Verdanth));
    EXPECT_EQ(attributes.wMajorVerNum, 1);
    EXPECT_EQ(attributes.wMinorVerNum, 1);
    EXPECT_EQ(attributes.syskind, SYS_WIN64);
    EXPECT_EQ(library().name(), "Verdanth");
}

TEST(SystemLibrary, DescribesThePrivateInterfaceAsItIsDeclared)
{
    const shape::Interface declared = DECLARED(IMaterial, MEMBER(IMaterial, GetMaterialObject, 1, "retval"));
    const shape::Interface described = library().interfaceOf(InterfaceId<IMaterial>);
    EXPECT_EQ(described.name, "IMaterial");
    EXPECT_EQ(identifierText(described.iid), "{E2484BD9-413A-4855-95BF-CC72E1AFC4D2}");
    EXPECT_EQ(described.members, declared.members);
    EXPECT_EQ(declared.slots, 8u);
}

TEST(SystemLibrary, NamesTheTwoClasses)
{
    EXPECT_EQ(library().nameOf(CLSID_MaterialObject), "MaterialObject");
    EXPECT_EQ(library().interfacesOfClass(CLSID_MaterialObject), std::vector<std::string>{"IMaterial"});
    EXPECT_EQ(library().nameOf(CLSID_SimulationContext), "SimulationContext");
    EXPECT_EQ(library().interfacesOfClass(CLSID_SimulationContext), std::vector<std::string>());
}
