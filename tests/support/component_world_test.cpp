#include "tests/support/component_world.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace support;

TEST(ComponentWorld, ServesItsClassesToWhoeverCreatesThem)
{
    ComponentWorld world;
    PackageScript &package = world.addUnregisteredPackage();
    const CLSID classId = world.newClassId();
    world.serve(classId, package);
    ComPointer<ICapeThermoCompounds> compounds;
    ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<ICapeThermoCompounds>,
                               compounds.outVoid()),
              S_OK);
    LONG count = 0;
    EXPECT_EQ(compounds->GetNumCompounds(&count), S_OK);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(package.references(), 1);
    compounds.reset();
    EXPECT_EQ(package.references(), 0);
    EXPECT_EQ(world.log, (CallLog{"package.created", "package.GetNumCompounds", "package.released"}));
    world.expectAllReleased();
}

TEST(ComponentWorld, RefusesACreationThatIsScriptedToFail)
{
    ComponentWorld world;
    PackageScript &package = world.addUnregisteredPackage();
    const CLSID classId = world.newClassId();
    world.serve(classId, package);
    package.answer("created", E_OUTOFMEMORY);
    ComPointer<IDispatch> object;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<IDispatch>, object.outVoid()),
              E_OUTOFMEMORY);
    EXPECT_EQ(package.objectsMade(), 0);
}

TEST(ComponentWorld, SeesAReferenceThatIsLeft)
{
    static ComponentWorld *world;
    ComponentWorld own;
    world = &own;
    ComPointer<IDispatch> object;
    ASSERT_EQ(own.addUnregisteredPackage().create(InterfaceId<IDispatch>, object.outVoid()), S_OK);
    EXPECT_NONFATAL_FAILURE(world->expectAllReleased(), "package is still held");
}

TEST(ComponentWorld, SeesWhatIsDoneToAReleasedObject)
{
    static ComponentWorld *world;
    ComponentWorld own;
    world = &own;
    PackageScript &package = own.addUnregisteredPackage();
    IUnknown *object = nullptr;
    ASSERT_EQ(package.create(InterfaceId<IUnknown>, reinterpret_cast<void **>(&object)), S_OK);
    object->Release();
    object->Release();
    EXPECT_EQ(package.misuses, (std::vector<std::string>{"package.Release without a reference"}));
    EXPECT_NONFATAL_FAILURE(world->expectAllReleased(), "Release without a reference");
}

TEST(ComponentWorld, TheRelayMakesTheClassesItOffers)
{
    ComponentWorld world;
    RelayScript &relay = world.addRelay();
    PackageScript &package = world.addUnregisteredPackage();
    relay.offer("{known}", package);
    ComPointer<IVerdanth6432Relay> client;
    ASSERT_EQ(
        CoCreateInstance(relayClass, nullptr, CLSCTX_LOCAL_SERVER, InterfaceId<IVerdanth6432Relay>, client.outVoid()),
        S_OK);
    ComPointer<IUnknown> object;
    EXPECT_EQ(client->CreateObject32(OwnedBstr("{known}"), object.out()), S_OK);
    EXPECT_EQ(package.references(), 1);
    EXPECT_EQ(client->CreateObject32(OwnedBstr("{other}"), object.out()), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(relay.requestedClasses, Names({"{known}", "{other}"}));
}
