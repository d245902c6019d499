// The type library that the relay carries, by which calls get to it.
#include "cape/com/relay_interface.h"
#include "tests/type_library/library_view.h"

#include <gtest/gtest.h>

TEST(RelayLibrary, DescribesTheRelayAsItIsDeclared)
{
    const LibraryView library(OLESTR("Verdanth6432Relay.exe"));
    const TLIBATTR attributes = library.attributes();
    EXPECT_EQ(identifierText(attributes.guid), identifierText(LIBID_Verdanth6432Relay));
    EXPECT_EQ(attributes.wMajorVerNum, 1);
    EXPECT_EQ(attributes.wMinorVerNum, 1);
    EXPECT_EQ(attributes.syskind, SYS_WIN32);

    const shape::Interface declared =
        DECLARED(IVerdanth6432Relay, MEMBER(IVerdanth6432Relay, CreateObject32, 1, "in retval"));
    const shape::Interface described = library.interfaceOf(InterfaceId<IVerdanth6432Relay>);
    EXPECT_EQ(described.name, "IVerdanth6432Relay");
    EXPECT_EQ(identifierText(described.iid), "{E5D29B15-C411-4600-B764-370A604E2C06}");
    EXPECT_EQ(described.members, declared.members);
    EXPECT_EQ(declared.slots, 8u);
    EXPECT_EQ(library.nameOf(CLSID_Verdanth6432Relay), "Verdanth6432Relay");
    EXPECT_EQ(library.interfacesOfClass(CLSID_Verdanth6432Relay), std::vector<std::string>{"IVerdanth6432Relay"});
}
