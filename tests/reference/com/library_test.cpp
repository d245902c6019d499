// The exports of the library, its class factories and the manager.
#include "reference/package/package_table.h"
#include "reference/server/class_table.h"
#include "tests/reference/com/host.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

ComPointer<IDispatch> getPackage(ICapeThermoPropertyPackageManager *manager, std::string_view name)
{
    ComPointer<IDispatch> package;
    manager->GetPropertyPackage(Bstr(name).get(), package.out());
    return package;
}

} // namespace

TEST(ReferenceLibrary, KnowsNoOtherClasses)
{
    Library library;
    void *none = &library;
    EXPECT_EQ(library.getClassObject(InterfaceId<IUnknown>, InterfaceId<IClassFactory>, &none),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(library.getClassObject(managerClass, InterfaceId<IClassFactory>, nullptr), E_POINTER);
    none = &library;
    EXPECT_EQ(library.getClassObject(managerClass, InterfaceId<IDispatch>, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
}

TEST(ReferenceLibrary, IsKeptByALock)
{
    Library library;
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(library.getClassObject(standAloneClass, InterfaceId<IClassFactory>, factory.outVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(ReferenceLibrary, IsKeptByAFactory)
{
    Library library;
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(library.getClassObject(standAloneClass, InterfaceId<IClassFactory>, factory.outVoid()), S_OK);
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory.detach()->Release(), 0u);
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(ReferenceLibrary, MakesNoPartOfAnotherObject)
{
    Library library;
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(library.getClassObject(standAloneClass, InterfaceId<IClassFactory>, factory.outVoid()), S_OK);
    void *none = &library;
    EXPECT_EQ(factory->CreateInstance(factory.get(), InterfaceId<IUnknown>, &none), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, InterfaceId<IUnknown>, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(nullptr, InterfaceId<IClassFactory>, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(factory->QueryInterface(InterfaceId<IUnknown>, nullptr), E_POINTER);
}

TEST(PackageManager, ListsItsPackages)
{
    Library library;
    const auto manager = library.create<ICapeThermoPropertyPackageManager>(managerClass);
    ASSERT_TRUE(manager);
    Argument names;
    ASSERT_EQ(manager->GetPropertyPackageList(names.out()), S_OK);
    EXPECT_EQ(textsOf(names.get()),
              (std::vector<std::string>{"Natural gas", "Air", "Refinery gas", "Aromatics", "Refrigerants",
                                        "Water and light alcohols", "Wet gas and hydrocarbons",
                                        "All compounds (Peng-Robinson)", "All compounds (Soave-Redlich-Kwong)"}));
    EXPECT_EQ(manager->GetPropertyPackageList(nullptr), E_POINTER);
}

TEST(PackageManager, MakesPackagesThatLiveWithoutIt)
{
    Library library;
    auto manager = library.create<ICapeThermoPropertyPackageManager>(managerClass);
    ASSERT_TRUE(manager);
    ComPointer<IDispatch> first = getPackage(manager.get(), "Natural gas");
    ComPointer<IDispatch> second = getPackage(manager.get(), "NATURAL GAS");
    ASSERT_TRUE(first && second);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(manager.detach()->Release(), 0u);
    Bstr name;
    ASSERT_EQ(as<ICapeIdentification>(first.get())->get_ComponentName(name.out()), S_OK);
    EXPECT_EQ(narrow(name.get()), "Natural gas");
    CLSID classId{};
    EXPECT_EQ(as<IPersistStreamInit>(first.get())->GetClassID(&classId), S_OK);
    EXPECT_TRUE(classId == managerClass); // there is no class of the package alone
    LONG count = 0;
    EXPECT_EQ(as<ICapeThermoCompounds>(second.get())->GetNumCompounds(&count), S_OK);
    EXPECT_EQ(count, 11);
    EXPECT_EQ(first.detach()->Release(), 0u);
    EXPECT_EQ(second.detach()->Release(), 0u);
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(PackageManager, RefusesAnUnknownName)
{
    Library library;
    const auto manager = library.create<ICapeThermoPropertyPackageManager>(managerClass);
    ASSERT_TRUE(manager);
    IDispatch *none = manager.get();
    EXPECT_EQ(manager->GetPropertyPackage(Bstr(std::string_view("Sea water")).get(), &none),
              errors::invalidArgument.result);
    EXPECT_EQ(none, nullptr);
    const LastFailure failure = lastFailure(manager.get());
    EXPECT_EQ(failure.name, "ECapeInvalidArgument");
    EXPECT_EQ(failure.description, "There is no package \"Sea water\"");
    EXPECT_EQ(failure.interfaceName, "ICapeThermoPropertyPackageManager");
    EXPECT_EQ(failure.operation, "GetPropertyPackage");
    EXPECT_EQ(manager->GetPropertyPackage(nullptr, &none), errors::invalidArgument.result);
    EXPECT_EQ(lastFailure(manager.get()).description, "There is no package \"\"");
    EXPECT_EQ(manager->GetPropertyPackage(nullptr, nullptr), E_POINTER);
}
