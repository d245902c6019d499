// The simulation context as a component sees it.
#include "tests/mex/simulation_context/message_box_calls.h"
#include "tests/support/error_interfaces.h"
#include "tests/support/package_test.h"

using namespace support;

namespace {

class SimulationContext : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        ASSERT_NE(context(), nullptr);
    }

    IDispatch *context() { return package.context.get(); }

    template <class Interface> ComPointer<Interface> as()
    {
        ComPointer<Interface> pointer;
        EXPECT_EQ(pointer.queryFrom(context()), S_OK);
        return pointer;
    }

    // The context writes to MATLAB, so its words arrive with the command during which they come.
    std::vector<std::string> warningsWhile(const std::function<void()> &action)
    {
        package.onCall = [&](const std::string &method) {
            if (method == "GetConstPropList")
                action();
        };
        const std::vector<std::string> warnings = mustReturn(1, {Scalar(10), handle}).warnings;
        package.onCall = nullptr;
        return warnings;
    }
};

template <class Object> WideString read(Object &object, HRESULT (STDMETHODCALLTYPE Object::*getter)(BSTR *))
{
    OwnedBstr text;
    EXPECT_EQ((object.*getter)(text.out()), S_OK);
    return text.wide();
}

const RefusedCall refusedName = {Wide("Access denied"), Wide("Cannot change name of the simulation context"),
                                 Wide("ICapeIdentification"), Wide("put_ComponentName")};
const RefusedCall refusedDescription = {Wide("Access denied"),
                                        Wide("Cannot change description of the simulation context"),
                                        Wide("ICapeIdentification"), Wide("put_ComponentDescription")};

} // namespace

TEST_F(SimulationContext, HasItsSixInterfacesAndNoOther)
{
    const int before = ReferencesOn(context());
    const IID interfaces[] = {InterfaceId<ECapeRoot>,
                              InterfaceId<ECapeUnknown>,
                              InterfaceId<ECapeUser>,
                              InterfaceId<ICapeDiagnostic>,
                              InterfaceId<ICapeIdentification>,
                              InterfaceId<ICapeSimulationContext>,
                              InterfaceId<IUnknown>,
                              InterfaceId<IDispatch>};
    for (const IID &iid : interfaces) {
        void *object = nullptr;
        ASSERT_EQ(context()->QueryInterface(iid, &object), S_OK);
        EXPECT_EQ(ReferencesOn(context()), before + 1);
        static_cast<IUnknown *>(object)->Release();
    }
    void *object = context();
    EXPECT_EQ(context()->QueryInterface(InterfaceId<ICapeUtilities>, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(context()->QueryInterface(InterfaceId<ICapeDiagnostic>, nullptr), E_POINTER);
    EXPECT_EQ(ReferencesOn(context()), before);
}

TEST_F(SimulationContext, IsItsDiagnosticInterface)
{
    const void *const identity = as<IUnknown>().get();
    EXPECT_EQ(static_cast<const void *>(as<IDispatch>().get()), identity);
    EXPECT_EQ(static_cast<const void *>(as<ICapeDiagnostic>().get()), identity);
    EXPECT_NE(static_cast<const void *>(as<ICapeIdentification>().get()), identity);
    EXPECT_EQ(static_cast<const void *>(context()), identity);
}

TEST_F(SimulationContext, IsIdentifiedByOneTextForNameAndDescription)
{
    const auto identification = as<ICapeIdentification>();
    EXPECT_EQ(read(*identification.get(), &ICapeIdentification::get_ComponentName), Wide("Matlab Simulation Context"));
    EXPECT_EQ(read(*identification.get(), &ICapeIdentification::get_ComponentDescription),
              Wide("Matlab Simulation Context"));
}

TEST_F(SimulationContext, BeforeAnyRefusalTellsEmptyTexts)
{
    const auto user = as<ECapeUser>();
    EXPECT_EQ(read(*as<ECapeRoot>().get(), &ECapeRoot::get_name), WideString());
    EXPECT_EQ(read(*user.get(), &ECapeUser::get_description), WideString());
    EXPECT_EQ(read(*user.get(), &ECapeUser::get_scope), WideString());
    EXPECT_EQ(read(*user.get(), &ECapeUser::get_interfaceName), WideString());
}

TEST_F(SimulationContext, RefusesANewNameAndTellsWhy)
{
    const auto identification = as<ICapeIdentification>();
    const auto user = as<ECapeUser>();
    const WideString moreInfo = read(*user.get(), &ECapeUser::get_moreInfo);
    EXPECT_FALSE(moreInfo.empty());
    EXPECT_EQ(identification->put_ComponentName(OwnedBstr("Matlab Simulation Context")), CapeFailure(0x01));
    EXPECT_EQ(LastRefusal(context()), refusedName);
    EXPECT_EQ(read(*user.get(), &ECapeUser::get_operation), Wide("N/A"));
    EXPECT_EQ(read(*user.get(), &ECapeUser::get_moreInfo), moreInfo);
    LONG code = 7;
    EXPECT_EQ(user->get_code(&code), S_OK);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(read(*identification.get(), &ICapeIdentification::get_ComponentName), Wide("Matlab Simulation Context"));
    EXPECT_EQ(LastRefusal(context()), refusedName) << "a success does not clear the refusal";
}

TEST_F(SimulationContext, RemembersTheLatestRefusalOnly)
{
    const auto identification = as<ICapeIdentification>();
    EXPECT_EQ(identification->put_ComponentName(nullptr), CapeFailure(0x01));
    EXPECT_EQ(identification->put_ComponentDescription(nullptr), CapeFailure(0x01));
    EXPECT_EQ(LastRefusal(context()), refusedDescription);
    EXPECT_EQ(LastRefusal(as<ICapeSimulationContext>().get()), refusedDescription) << "one state per object";
}

TEST_F(SimulationContext, RefusesToWriteToANullPointer)
{
    ExpectNullPointersRefused(*as<ECapeRoot>().get(), *as<ECapeUser>().get());
    const auto identification = as<ICapeIdentification>();
    EXPECT_EQ(identification->get_ComponentName(nullptr), E_POINTER);
    EXPECT_EQ(identification->get_ComponentDescription(nullptr), E_POINTER);
}

TEST_F(SimulationContext, HasOneTypeInformationPerInterface)
{
    for (IDispatch *facet :
         {static_cast<IDispatch *>(as<ICapeDiagnostic>().get()),
          static_cast<IDispatch *>(as<ICapeIdentification>().get()), static_cast<IDispatch *>(as<ECapeUser>().get()),
          static_cast<IDispatch *>(as<ICapeSimulationContext>().get())}) {
        UINT count = 7;
        EXPECT_EQ(facet->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1u);
        EXPECT_EQ(facet->GetTypeInfoCount(nullptr), E_POINTER);
        ITypeInfo *information = nullptr;
        EXPECT_EQ(facet->GetTypeInfo(1, 0, &information), static_cast<HRESULT>(0x8002000Bu));
    }
}

TEST_F(SimulationContext, PassesALogMessageOnAsAWarning)
{
    EXPECT_EQ(warningsWhile([&] {
                  EXPECT_EQ(LogMessage(package, "first: 100% of C:\\n"), S_OK);
                  EXPECT_EQ(LogMessage(package, ""), S_OK);
              }),
              (std::vector<std::string>{"CAPE-OPEN: first: 100% of C:\\n", "CAPE-OPEN: "}));
}

TEST_F(SimulationContext, PassesALongLogMessageOnWhole)
{
    const std::string message(5000, 'm');
    EXPECT_EQ(warningsWhile([&] { EXPECT_EQ(LogMessage(package, message), S_OK); }),
              std::vector<std::string>{"CAPE-OPEN: " + message});
}

TEST_F(SimulationContext, DropsALogMessageWhenWarningsAreOff)
{
    showWarnings(false);
    EXPECT_EQ(warningsWhile([&] { EXPECT_EQ(LogMessage(package, "unheard"), S_OK); }), std::vector<std::string>());
}

TEST_F(SimulationContext, LeavesTheErrorOfTheCommandAlone)
{
    package.answer("GetConstPropList", computationFailed);
    package.onCall = [this](const std::string &method) {
        if (method == "GetConstPropList") {
            EXPECT_EQ(LogMessage(package, "about to fail"), S_OK);
        }
    };
    const CallResult result = call(1, {Scalar(10), handle});
    EXPECT_EQ(result.error, "GetConstPropList failed: computation error");
    EXPECT_EQ(result.warnings, std::vector<std::string>{"CAPE-OPEN: about to fail"});
    package.onCall = nullptr;
}

TEST_F(SimulationContext, ShowsAMessageInABox)
{
    MessageBoxCalls boxes;
    EXPECT_EQ(warningsWhile([&] { EXPECT_EQ(PopUpMessage(package, "Look at 100% of this"), S_OK); }),
              std::vector<std::string>());
    ASSERT_EQ(boxes.made().size(), 1u);
    EXPECT_FALSE(boxes.made()[0].hasOwner);
    EXPECT_EQ(boxes.made()[0].text, Wide("Look at 100% of this"));
    EXPECT_EQ(boxes.made()[0].title, Wide("Verdanth:"));
    EXPECT_EQ(boxes.made()[0].style, 0x40u);
}

TEST_F(SimulationContext, DoesNotMindHowABoxIsAnswered)
{
    for (const int answer : {0, IDOK, 2}) {
        MessageBoxCalls boxes(answer);
        EXPECT_EQ(PopUpMessage(package, "Look"), S_OK);
        EXPECT_EQ(boxes.made().size(), 1u);
    }
}

TEST_F(SimulationContext, ShowsTheMessageAsItCameAlsoWhenThereIsNone)
{
    MessageBoxCalls boxes;
    EXPECT_EQ(as<ICapeDiagnostic>()->PopUpMessage(nullptr), S_OK);
    ASSERT_EQ(boxes.made().size(), 1u);
    EXPECT_EQ(boxes.made()[0].text, std::nullopt);
}

TEST_F(SimulationContext, TakesALogMessageThatIsNoneForAnEmptyOne)
{
    EXPECT_EQ(warningsWhile([&] { EXPECT_EQ(as<ICapeDiagnostic>()->LogMessage(nullptr), S_OK); }),
              std::vector<std::string>{"CAPE-OPEN: "});
}

TEST_F(SimulationContext, ShowsNoBoxWhenWarningsAreOff)
{
    MessageBoxCalls boxes;
    showWarnings(false);
    EXPECT_EQ(PopUpMessage(package, "unseen"), S_OK);
    EXPECT_EQ(boxes.made().size(), 0u);
}

TEST_F(SimulationContext, IsHeldByTheProcessOnceAndByItsComponents)
{
    EXPECT_EQ(ReferencesOn(context()), 2) << "the process and the package";
    world.addPackage("never opened");
    mustReturn(1, {Scalar(7), handle});
    EXPECT_EQ(ReferencesOn(context()), 2);
}

// One context serves all components, also those that come after the others have gone.

class SharedSimulationContext : public MexTest {
protected:
    ManagerScript &manager = world.addManager("Manager");
    PackageScript &pair = world.addPackageOf(manager, "Pair");
    PackageScript &alone = world.addPackage("Alone");
};

TEST_F(SharedSimulationContext, IsTheSameForManagersAndPackages)
{
    manager.keepsContext = true;
    open("Manager", "Pair");
    open("Alone");
    EXPECT_NE(pair.context.get(), nullptr);
    EXPECT_EQ(manager.keptContext.get(), pair.context.get());
    EXPECT_EQ(alone.context.get(), pair.context.get());
    manager.keptContext.reset();
}

TEST_F(SharedSimulationContext, OutlivesThePackages)
{
    const Array handle = open("Alone");
    ComPointer<ICapeIdentification> identification;
    identification.queryFrom(alone.context.get());
    EXPECT_EQ(identification->put_ComponentName(nullptr), CapeFailure(0x01));
    identification.reset();
    mustReturn(0, {Scalar(4), handle});
    open("Manager", "Pair");
    EXPECT_EQ(LastRefusal(pair.context.get()), refusedName) << "another object, which was refused nothing yet";
}

TEST_F(SharedSimulationContext, IsNewInALibraryThatIsLoadedAnew)
{
    open("Alone");
    ComPointer<ICapeIdentification> identification;
    identification.queryFrom(alone.context.get());
    EXPECT_EQ(identification->put_ComponentName(nullptr), CapeFailure(0x01));
    identification.reset();
    matlab.clear();
    matlab.load();
    open("Alone");
    EXPECT_EQ(LastRefusal(alone.context.get()), RefusedCall());
}
