// What managers and packages have in common: identity, counting, life cycle, words for failures.
#include "reference/server/class_table.h"
#include "tests/reference/com/host.h"
#include "tests/reference/com/test_material.h"
#include "tests/support/error_interfaces.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

class Components : public testing::TestWithParam<const CLSID *> {
protected:
    void SetUp() override
    {
        object = library.create<ICapeUtilities>(*GetParam());
        ASSERT_TRUE(object);
    }

    Library library;
    ComPointer<ICapeUtilities> object;
};

INSTANTIATE_TEST_SUITE_P(Classes, Components, testing::Values(&managerClass, &standAloneClass),
                         [](const auto &info) { return info.param == &managerClass ? "Manager" : "StandAlone"; });

} // namespace

TEST_P(Components, StartWithOneReferenceAndEndWithTheLast)
{
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
    EXPECT_EQ(object->AddRef(), 2u);
    EXPECT_EQ(object->Release(), 1u);
    ComPointer<IDispatch> another = as<IDispatch>(object.get());
    EXPECT_EQ(object->AddRef(), 3u);
    object->Release();
    another.reset();
    EXPECT_EQ(object.detach()->Release(), 0u);
    EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST_P(Components, HaveOneIdentityFromEachInterface)
{
    const ComPointer<IUnknown> identity = as<IUnknown>(object.get());
    for (const IID &iid :
         {InterfaceId<ICapeIdentification>, InterfaceId<ICapeUtilities>, InterfaceId<ECapeRoot>, InterfaceId<ECapeUser>,
          InterfaceId<ECapeUnknown>, InterfaceId<IPersistStreamInit>, InterfaceId<IDispatch>}) {
        ComPointer<IUnknown> facet;
        ASSERT_EQ(object->QueryInterface(iid, facet.outVoid()), S_OK);
        EXPECT_EQ(as<IUnknown>(facet.get()).get(), identity.get());
        EXPECT_EQ(as<IDispatch>(facet.get()).get(), as<IDispatch>(object.get()).get());
    }
}

TEST_P(Components, RefuseOtherInterfacesAndNullPointers)
{
    void *none = &library;
    EXPECT_EQ(object->QueryInterface(InterfaceId<IClassFactory>, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(object->QueryInterface(InterfaceId<IUnknown>, nullptr), E_POINTER);
}

TEST_P(Components, AreCalledThroughTheirTablesOnly)
{
    UINT count = 7;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
    ITypeInfo *information = reinterpret_cast<ITypeInfo *>(this);
    EXPECT_EQ(object->GetTypeInfo(0, 0, &information), E_NOTIMPL);
    EXPECT_EQ(information, nullptr);
    EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
    const GUID none{};
    EXPECT_EQ(object->GetIDsOfNames(none, nullptr, 0, 0, nullptr), E_NOTIMPL);
    EXPECT_EQ(object->Invoke(1, none, 0, 1, nullptr, nullptr, nullptr, nullptr), E_NOTIMPL);
}

TEST_P(Components, TakeTheContextBeforeAndAfterInitialize)
{
    TestMaterial context({}); // any object with IDispatch
    auto *dispatch = static_cast<ICapeThermoMaterial *>(&context);
    EXPECT_EQ(object->put_simulationContext(dispatch), S_OK);
    EXPECT_EQ(object->Initialize(), S_OK);
    EXPECT_EQ(object->put_simulationContext(dispatch), S_OK);
    EXPECT_EQ(object->put_simulationContext(nullptr), S_OK);
    EXPECT_EQ(object->Terminate(), S_OK);
    EXPECT_EQ(object->Terminate(), S_OK);
    EXPECT_EQ(context.references, 1u);
}

TEST_P(Components, HaveNoParametersAndNoEditor)
{
    IDispatch *parameters = object.get();
    EXPECT_EQ(object->get_parameters(&parameters), errors::noImplementation.result);
    EXPECT_EQ(parameters, nullptr);
    EXPECT_EQ(lastFailure(object.get()).description, "There are no parameters");
    EXPECT_EQ(object->get_parameters(nullptr), E_POINTER);
    EXPECT_EQ(object->Edit(), errors::noImplementation.result);
    const LastFailure failure = lastFailure(object.get());
    EXPECT_EQ(failure.name, "ECapeNoImpl");
    EXPECT_EQ(failure.description, "There is nothing to edit");
    EXPECT_EQ(failure.interfaceName, "ICapeUtilities");
    EXPECT_EQ(failure.operation, "Edit");
    EXPECT_EQ(failure.scope, "VerdanthReference.ICapeUtilities");
}

TEST_P(Components, DescribeNothingBeforeTheFirstFailure)
{
    const LastFailure failure = lastFailure(object.get());
    EXPECT_EQ(failure.name, "");
    EXPECT_EQ(failure.description, "");
    EXPECT_EQ(failure.scope, "");
}

TEST_P(Components, GiveTheirErrorCodeAndItsMeaning)
{
    object->Edit();
    const ComPointer<ECapeUser> user = as<ECapeUser>(object.get());
    LONG code = 0;
    EXPECT_EQ(user->get_code(&code), S_OK);
    EXPECT_EQ(code, static_cast<LONG>(0x80040509));
    Bstr information;
    EXPECT_EQ(user->get_moreInfo(information.out()), S_OK);
    EXPECT_EQ(narrow(information.get()), "The component has no such feature");
    ExpectNullPointersRefused(*as<ECapeRoot>(object.get()).get(), *user.get());
}

TEST_P(Components, LetTheHostRenameThem)
{
    const ComPointer<ICapeIdentification> identification = as<ICapeIdentification>(object.get());
    Bstr name;
    ASSERT_EQ(identification->get_ComponentName(name.out()), S_OK);
    EXPECT_EQ(narrow(name.get()),
              GetParam() == &managerClass ? "Verdanth Reference Packages" : "Verdanth Natural Gas (stand-alone)");
    Bstr mine(std::string_view("Gas 7"));
    EXPECT_EQ(identification->put_ComponentName(mine.get()), S_OK);
    EXPECT_EQ(identification->put_ComponentDescription(nullptr), S_OK);
    Bstr newName;
    Bstr newDescription;
    ASSERT_EQ(identification->get_ComponentName(newName.out()), S_OK);
    ASSERT_EQ(identification->get_ComponentDescription(newDescription.out()), S_OK);
    EXPECT_EQ(narrow(newName.get()), "Gas 7");
    EXPECT_EQ(narrow(newDescription.get()), "");
    EXPECT_EQ(identification->get_ComponentName(nullptr), E_POINTER);
    EXPECT_EQ(identification->get_ComponentDescription(nullptr), E_POINTER);
}

TEST_P(Components, HaveNothingToStore)
{
    const ComPointer<IPersistStreamInit> persist = as<IPersistStreamInit>(object.get());
    CLSID classId{};
    EXPECT_EQ(persist->GetClassID(&classId), S_OK);
    EXPECT_TRUE(classId == *GetParam());
    EXPECT_EQ(persist->GetClassID(nullptr), E_POINTER);
    EXPECT_EQ(persist->InitNew(), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    EXPECT_EQ(persist->Load(nullptr), S_OK);
    EXPECT_EQ(persist->Save(nullptr, TRUE), S_OK);
    ULARGE_INTEGER size;
    size.QuadPart = 5;
    EXPECT_EQ(persist->GetSizeMax(&size), S_OK);
    EXPECT_EQ(size.QuadPart, 0u);
    EXPECT_EQ(persist->GetSizeMax(nullptr), E_POINTER);
}
