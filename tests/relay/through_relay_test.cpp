// A package that exists for 32 bits only, used by the 64-bit library through the real relay.
#include "tests/relay/through_relay_test.h"

#include "tests/support/message_boxes.h"

#include <cmath>

using namespace support;
using installation::RegisteredPackage32;
using installation::RegisteredRelay;

namespace {

class PackageOf32Bits : public ThroughRelay {
protected:
    RegisteredRelay relay;
    RegisteredPackage32 packages;
};

class OddPackageOf32Bits : public ThroughRelay {
protected:
    RegisteredRelay relay;
};

class WithoutRelay : public ThroughRelay {
protected:
    RegisteredPackage32 packages;
};

// The same package in this process, registered while the object lives.
class PackageOf64Bits {
public:
    PackageOf64Bits() { call("DllRegisterServer"); }
    ~PackageOf64Bits() { call("DllUnregisterServer"); }
    PackageOf64Bits(const PackageOf64Bits &) = delete;
    PackageOf64Bits &operator=(const PackageOf64Bits &) = delete;

private:
    void call(const char *function)
    {
        const HMODULE library = LoadLibraryW(L"VerdanthReference.dll");
        const FARPROC entry = GetProcAddress(library, function);
        ASSERT_TRUE(entry);
        EXPECT_EQ(reinterpret_cast<HRESULT(STDAPICALLTYPE *)()>(reinterpret_cast<void (*)()>(entry))(), S_OK);
        FreeLibrary(library);
    }
};

// All that a command gave, in order; texts and numbers apart.
struct Content {
    std::vector<WideString> texts;
    std::vector<double> numbers;

    void add(const Array &array)
    {
        switch (array.classId()) {
        case mxCELL_CLASS:
            for (std::size_t i = 0; i < array.count(); ++i)
                add(array.element(i));
            break;
        case mxCHAR_CLASS:
            texts.push_back(array.text());
            break;
        case mxDOUBLE_CLASS: {
            const std::vector<double> more = array.numbers();
            numbers.insert(numbers.end(), more.begin(), more.end());
            break;
        }
        default:
            ADD_FAILURE() << "an array of class " << array.classId();
        }
    }
};

} // namespace

TEST(PackageRegistration64, StaysInTheViewOfItsOwnBitness)
{
    const std::string key = "CLSID\\" + standAloneClass;
    {
        const PackageOf64Bits package;
        EXPECT_EQ(installation::registeredText(KEY_WOW64_64KEY, key + "\\InprocServer32"),
                  Narrow(installation::fileHere(L"VerdanthReference.dll")));
        EXPECT_FALSE(installation::keyExists(KEY_WOW64_32KEY, key));
    }
    EXPECT_FALSE(installation::keyExists(KEY_WOW64_64KEY, key));
}

// Program ids have no views: what one registration takes back must not be the other's.
TEST(PackageRegistration64, AndThatOf32BitsLeaveEachOthersProgramIds)
{
    const std::string programs[] = {"Verdanth.ReferencePackages", "Verdanth.NaturalGas"};
    const auto expectIds = [&](const std::string &width, bool there) {
        for (const std::string &program : programs)
            EXPECT_EQ(installation::keyExists(0, program + width + "\\CLSID"), there) << program << width;
    };
    const auto expectClass = [](const std::string &width) {
        CLSID classId{};
        EXPECT_EQ(CLSIDFromProgID(Wide("Verdanth.NaturalGas" + width).c_str(), &classId), S_OK) << width;
        EXPECT_EQ(classId.Data1, 0x8337DA1D);
    };
    std::optional<PackageOf64Bits> of64(std::in_place);
    std::optional<RegisteredPackage32> of32(std::in_place);
    expectClass("64");
    expectClass("32");
    of64.reset();
    expectIds("64", false);
    expectIds("32", true);
    expectClass("32");
    of64.emplace();
    of32.reset();
    expectIds("32", false);
    expectIds("64", true);
    expectClass("64");
    of64.reset();
    expectIds("64", false);
}

TEST_F(PackageOf32Bits, IsListed)
{
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({standAloneName, managerName}));
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text(standAloneName)})[0].texts(), Names({"(stand-alone)"}));
    EXPECT_EQ(installation::relays().size(), 0u) << "nothing was created so far";
    const CallResult listed = mustReturn(1, {Scalar(2), Text(managerName)});
    EXPECT_EQ(listed[0].texts(), packagesOfManager);
    EXPECT_EQ(listed.warnings, RelayWarning(managerName));
    EXPECT_EQ(installation::relays().size(), 1u);
}

TEST_F(PackageOf32Bits, GoesByTheNativeRegistrationWhenThereIsOne)
{
    const PackageOf64Bits native;
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({standAloneName, managerName})) << "each is listed once";
    EXPECT_EQ(openAlone(standAloneName).warnings, std::vector<std::string>());
    EXPECT_EQ(installation::relays().size(), 0u);
}

TEST_F(PackageOf32Bits, IsCreatedWithAWarningThatNamesIt)
{
    EXPECT_EQ(openAlone(standAloneName).warnings, RelayWarning(standAloneName));
}

TEST_F(PackageOf32Bits, IsSilentWhenWarningsAreOff)
{
    showWarnings(false);
    EXPECT_EQ(openAlone(standAloneName).warnings, std::vector<std::string>());
}

TEST_F(PackageOf32Bits, CanBeClosedAndOpenedAgainAndTheRelayGoesWithTheLibrary)
{
    for (int i = 0; i < 3; ++i) {
        const CallResult opened = mustReturn(1, {Scalar(3), Text(managerName), Text(packageName)});
        EXPECT_EQ(opened.warnings, RelayWarning(managerName)) << "each time";
        mustReturn(0, {Scalar(4), opened[0]});
        EXPECT_EQ(installation::relays().size(), 1u) << "it is kept";
    }
    matlab.clear();
    EXPECT_TRUE(installation::relaysEnd());
    matlab.load();
    EXPECT_EQ(openAlone(standAloneName).warnings, RelayWarning(standAloneName));
}

TEST_F(PackageOf32Bits, LeavesNoRelayBehindAProcessThatDies)
{
    for (const WCHAR *end : {L"exit ", L"die "}) {
        EXPECT_EQ(installation::run(installation::fileHere(L"relay_deserter.exe"), end + Wide(standAloneClass)), 7u);
        EXPECT_TRUE(installation::relaysEnd());
    }
}

TEST_F(PackageOf32Bits, TellsOfItsFailuresInItsOwnWords)
{
    showWarnings(false);
    EXPECT_EQ(refusal(1, {Scalar(3), Text(managerName), Text("Sea water")}),
              "package creation failed: There is no package \"Sea water\"");
    handle = openAlone(standAloneName)[0];
    EXPECT_EQ(refusal(5, {Scalar(24), handle, Row(gas()), Text("Temperature"), Scalar(-1), Text("Pressure"),
                          Scalar(1e5), Text("Unspecified")}),
              "CalcEquilibrium failed: The temperature must be from 20 to 1500 K");
}

TEST_F(PackageOf32Bits, CalculatesWhatThe64BitPackageDoes)
{
    const auto useAll = [this] {
        showWarnings(false);
        handle = mustReturn(1, {Scalar(3), Text(managerName), Text(packageName)})[0];
        Content content;
        for (const int list : {6, 7, 8, 9, 10, 11, 12, 13, 14}) {
            const CallResult result = call(1, {Scalar(list), handle});
            if (result.returned)
                content.add(result[0]);
        }
        content.add(mustReturn(1, {Scalar(16), handle, Text("criticalTemperature")})[0]);
        content.add(
            mustReturn(1, {Scalar(20), Scalar(1), handle, Text("idealGasHeatCapacity"), Column({250, 300})})[0]);
        const CallResult flash = mustReturn(5, {Scalar(24), handle, Row(gas()), Text("Temperature"), Scalar(220),
                                                Text("Pressure"), Scalar(40e5), Text("Unspecified")});
        for (const Array &output : flash.outputs)
            content.add(output);
        content.add(mustReturn(1, {Scalar(22), Scalar(2), handle, Texts({"density", "enthalpy"}), Column({250, 300}),
                                   Column({1e6, 2e6}), Matrix({gas(), gas()}), Text("Vapor")})[0]);
        content.add(vaporFractions(handle, {200, 220, 240}, {40e5, 40e5, 40e5})[0]);
        mustReturn(0, {Scalar(4), handle});
        handle = Array();
        matlab.clear();
        return content;
    };
    const Content through = useAll();
    EXPECT_TRUE(installation::relaysEnd());

    const PackageOf64Bits native;
    matlab.load();
    const Content direct = useAll();
    EXPECT_EQ(installation::relays().size(), 0u);

    EXPECT_EQ(through.texts, direct.texts);
    EXPECT_GT(through.texts.size(), 30u);
    ASSERT_EQ(through.numbers.size(), direct.numbers.size());
    EXPECT_GT(through.numbers.size(), 50u);
    // The compiler may order the arithmetic of the two differently.
    for (std::size_t i = 0; i < direct.numbers.size(); ++i)
        EXPECT_NEAR(through.numbers[i], direct.numbers[i], 1e-7 * std::abs(direct.numbers[i]) + 1e-12) << i;
}

TEST_F(OddPackageOf32Bits, IsNamedAsItIsRegistered)
{
    RegisteredClass entry = oddClass(2);
    entry.name = TextValue(std::string(700, 'n')); // too long to be listed by
    addOdd(entry);
    EXPECT_EQ(openAlone(entry.classIdText).warnings, RelayWarning(std::string(700, 'n')));
}

TEST_F(OddPackageOf32Bits, IsNamedAsItCallsItselfWithoutARegisteredName)
{
    RegisteredClass entry = oddClass(3);
    entry.described = false;
    addOdd(entry);
    showWarnings(true);
    const MessageBoxes boxes; // it has something to say, too
    EXPECT_EQ(openAlone(entry.classIdText).warnings.front(), RelayWarning("Odd").front());
}

TEST_F(OddPackageOf32Bits, IsNamedByItsProgramIdWhenItCannotTell)
{
    RegisteredClass entry = oddClass(1);
    entry.name.reset();
    addOdd(entry);
    RegisteredClass native = entry; // where a 64-bit process looks for program ids
    native.categories.clear();
    native.described = false;
    native.progId = Wide("Odd.Package.1");
    world.registry().add(native);
    EXPECT_EQ(openAlone(entry.classIdText).warnings, RelayWarning("Odd.Package.1"));
}

TEST_F(OddPackageOf32Bits, IsNamedByItsClassIdWhenItDoesNotTell)
{
    RegisteredClass entry = oddClass(2);
    entry.name.reset();
    addOdd(entry);
    EXPECT_EQ(openAlone(entry.classIdText).warnings, RelayWarning(Narrow(entry.classIdText)));
}

TEST_F(OddPackageOf32Bits, TalksToTheUserThroughTheContext)
{
    RegisteredClass entry = oddClass(3);
    entry.name = TextValue("Talkative");
    addOdd(entry);
    const MessageBoxes boxes;
    const CallResult opened = openAlone("Talkative");
    EXPECT_EQ(opened.warnings,
              (std::vector<std::string>{RelayWarning("Talkative").front(), "CAPE-OPEN: logged by 32 bits, 100%"}));
    EXPECT_EQ(boxes.shown(), (std::vector<ShownMessage>{{Wide("shown by 32 bits"), Wide("Verdanth:")}}));
}

TEST_F(OddPackageOf32Bits, IsNotHeardWhenWarningsAreOff)
{
    RegisteredClass entry = oddClass(3);
    entry.name = TextValue("Talkative");
    addOdd(entry);
    showWarnings(false);
    const MessageBoxes boxes;
    EXPECT_EQ(openAlone("Talkative").warnings, std::vector<std::string>());
    EXPECT_EQ(boxes.shown(), std::vector<ShownMessage>());
}

TEST_F(OddPackageOf32Bits, ThatIsMissingIsAnError)
{
    RegisteredClass entry = oddClass(9); // its library has no such class
    entry.name = TextValue("Missing");
    addOdd(entry);
    const CallResult result = call(1, {Scalar(3), Text("Missing"), Text("")});
    EXPECT_FALSE(result.returned);
    EXPECT_TRUE(result.error.starts_with("creation of package failed: ")) << result.error;
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(PackageOf32Bits, IsReachedByTheTypeLibraryThatTheRelayRegisters)
{
    const installation::WithoutStandardLibrary machine;
    showWarnings(false);
    EXPECT_EQ(refusal(1, {Scalar(2), Text(managerName)}),
              "creation of package manager failed: " + SystemText(E_NOINTERFACE));
    const WideString program = installation::file32(L"Verdanth6432Relay.exe");
    EXPECT_EQ(installation::run(program, L"/RegTypeLib"), 0u);
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text(managerName)})[0].texts(), packagesOfManager);
    handle = mustReturn(1, {Scalar(3), Text(managerName), Text(packageName)})[0];
    EXPECT_GT(vaporFractions(handle, {220}, {40e5})[0].element(0).numbers().at(0), 0.7);
    mustReturn(0, {Scalar(4), handle});
    handle = Array();
    matlab.clear();
    EXPECT_EQ(installation::run(program, L"/UnregTypeLib"), 0u);
}

TEST_F(WithoutRelay, A32BitPackageIsAnErrorAfterAWarningThatSaysWhatToDo)
{
    const CallResult result = call(1, {Scalar(3), Text(standAloneName), Text("")});
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.error, "creation of package failed: " + SystemText(E_UNEXPECTED));
    EXPECT_EQ(result.warnings,
              std::vector<std::string>{
                  "Verdanth6432Relay is not properly registered or not accessible. Please make sure "
                  "Verdanth6432Relay.exe is present in the Verdanth installation folder, and run "
                  "\"Verdanth6432Relay.exe /RegServer\" (administration rights required) to fix the problem. Verdanth "
                  "will not be able to access 32-bit in-process CAPE-OPEN objects"});
    showWarnings(false);
    EXPECT_EQ(refusal(1, {Scalar(2), Text(managerName)}),
              "creation of package manager failed: " + SystemText(E_UNEXPECTED));
}

TEST_F(WithoutRelay, The32BitPackagesAreReachedAsSoonAsItIsRegistered)
{
    showWarnings(false);
    EXPECT_EQ(refusal(1, {Scalar(2), Text(managerName)}),
              "creation of package manager failed: " + SystemText(E_UNEXPECTED));
    const RegisteredRelay relay;
    EXPECT_EQ(mustReturn(1, {Scalar(2), Text(managerName)})[0].texts(), packagesOfManager);
    matlab.clear();
}
