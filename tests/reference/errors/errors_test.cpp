// What a component tells of each of its failures, through the interfaces of the standard.
#include "tests/reference/errors/error_case.h"
#include "tests/support/error_interfaces.h"

#include <cmath>

namespace {

// An interface of the standard with the usual end of the id.
constexpr IID capeIid(ULONG first) { return {first, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}}; }
constexpr IID root = capeIid(0x678C0B10);
constexpr IID user = capeIid(0x678C0B11);
constexpr IID data = capeIid(0x678C0B13);
constexpr IID badArgument = {0xE29E42B3, 0xE481, 0x45C6, {0xA7, 0x37, 0x78, 0xF4, 0xA7, 0xFC, 0x03, 0x91}};
constexpr IID implementation = capeIid(0x678C0B19);
constexpr IID computation = capeIid(0x678C0B1C);
constexpr IID boundaries = capeIid(0x678C0B29);

// The errors that the packages raise: code, interface and the interfaces that it stands for, too.
struct StandardError {
    std::string name;
    ULONG code;
    IID iid;
    std::vector<IID> parents;
};
const StandardError standardErrors[] = {
    {"ECapeUnknown", 0x80040501, capeIid(0x678C0B12), {}},
    {"ECapeInvalidArgument", 0x80040506, capeIid(0x678C0B17), {data, badArgument}},
    {"ECapeOutOfBounds", 0x80040507, capeIid(0x678C0B18), {data, badArgument, boundaries}},
    {"ECapeNoImpl", 0x80040509, capeIid(0x678C0B1A), {implementation}},
    {"ECapeLimitedImpl", 0x8004050A, capeIid(0x678C0B1B), {implementation}},
    {"ECapeFailedInitialisation", 0x8004050F, capeIid(0x678C0B20), {computation}},
    {"ECapeSolvingError", 0x80040510, capeIid(0x678C0B21), {computation}},
    {"ECapeBadInvOrder", 0x80040511, capeIid(0x678C0B22), {computation}},
    {"ECapeThrmPropertyNotAvailable", 0x8004051A, capeIid(0x678C09B6), {}},
};

const StandardError *standardError(const std::string &name)
{
    const auto found =
        std::ranges::find_if(standardErrors, [&](const StandardError &each) { return each.name == name; });
    return found == std::end(standardErrors) ? nullptr : found;
}

bool answers(IUnknown *object, REFIID iid)
{
    ComPointer<IDispatch> facet;
    const HRESULT result = object->QueryInterface(iid, facet.outVoid());
    EXPECT_EQ(result, facet ? S_OK : E_NOINTERFACE);
    EXPECT_TRUE(!facet || as<IUnknown>(facet.get()).get() == as<IUnknown>(object).get()) << "another identity";
    return bool(facet);
}

void expectErrorInterfaces(IUnknown *object)
{
    for (const StandardError &error : standardErrors) {
        EXPECT_TRUE(answers(object, error.iid)) << error.name;
        for (const IID &parent : error.parents)
            EXPECT_TRUE(answers(object, parent)) << "a parent of " << error.name;
    }
    EXPECT_TRUE(answers(object, root));
    EXPECT_TRUE(answers(object, user));
    for (const ULONG never : {0x678C0B14, 0x678C0B15, 0x678C0B1D, 0x678C0B1E, 0x678C0B1F, 0x678C0B23, 0x678C0B24,
                              0x678C0B25, 0x678C0B26, 0x678C0B27, 0x678C0B28})
        EXPECT_FALSE(answers(object, capeIid(never))) << std::hex << never << " is never raised";
}

void expectBounds(IUnknown *object, const ExpectedBounds &expected)
{
    const auto isNear = [](double value, double wanted) {
        return value == wanted || std::fabs(value - wanted) <= 1e-12 * std::fabs(wanted);
    };
    double lower = 0.0;
    double upper = 0.0;
    double value = 0.0;
    Bstr type;
    const auto bounds = as<ECapeBoundaries>(object);
    ASSERT_TRUE(bounds);
    EXPECT_EQ(bounds->get_LowerBound(&lower), S_OK);
    EXPECT_EQ(bounds->get_UpperBound(&upper), S_OK);
    EXPECT_EQ(bounds->get_value(&value), S_OK);
    EXPECT_EQ(bounds->get_Type(type.out()), S_OK);
    EXPECT_TRUE(isNear(lower, expected.lower)) << lower;
    EXPECT_TRUE(isNear(upper, expected.upper)) << upper;
    EXPECT_TRUE(isNear(value, expected.value)) << value;
    EXPECT_EQ(narrow(type.get()), expected.type);
}

void expectNoBounds(IUnknown *object)
{
    const auto bounds = as<ECapeBoundaries>(object);
    ASSERT_TRUE(bounds);
    for (const auto get :
         {&ECapeBoundaries::get_LowerBound, &ECapeBoundaries::get_UpperBound, &ECapeBoundaries::get_value}) {
        double number = 0.0;
        EXPECT_EQ((bounds.get()->*get)(&number), S_OK);
        EXPECT_TRUE(std::isnan(number)) << number;
    }
    Bstr type;
    EXPECT_EQ(bounds->get_Type(type.out()), S_OK);
    EXPECT_EQ(narrow(type.get()), "");
}

SHORT positionIn(IUnknown *object)
{
    SHORT position = -1;
    EXPECT_EQ(as<ECapeBadArgument>(object)->get_position(&position), S_OK);
    return position;
}

std::string requestedOperationOf(IUnknown *object)
{
    Bstr operation;
    EXPECT_EQ(as<ECapeBadInvOrder>(object)->get_requestedOperation(operation.out()), S_OK);
    return narrow(operation.get());
}

class PackageErrors : public ErrorHost, public testing::WithParamInterface<ErrorCase> {};

INSTANTIATE_TEST_SUITE_P(Each, PackageErrors, testing::ValuesIn(errorCases()),
                         [](const auto &info) { return info.param.title; });

} // namespace

TEST_P(PackageErrors, AreToldInTheStandardsWords)
{
    const ErrorCase &expected = GetParam();
    const StandardError *error = standardError(expected.error);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(expected.fail(*this), static_cast<HRESULT>(error->code));

    const LastFailure failure = lastFailure(failed);
    EXPECT_EQ(failure.name, expected.error);
    EXPECT_EQ(failure.interfaceName, expected.interfaceName);
    EXPECT_EQ(failure.operation, expected.operation);
    EXPECT_EQ(failure.scope, std::string("VerdanthReference.") + expected.interfaceName);
    EXPECT_NE(failure.description, "");
    const auto words = as<ECapeUser>(failed);
    LONG code = 0;
    EXPECT_EQ(words->get_code(&code), S_OK);
    EXPECT_EQ(code, static_cast<LONG>(error->code));
    Bstr information;
    EXPECT_EQ(words->get_moreInfo(information.out()), S_OK);
    EXPECT_NE(narrow(information.get()), "");

    expectErrorInterfaces(failed);
    EXPECT_EQ(positionIn(failed), expected.position);
    const bool ofArgument = std::ranges::find(error->parents, badArgument) != error->parents.end();
    EXPECT_EQ(ofArgument, expected.position > 0) << "a bad argument has a position";
    if (expected.bounds)
        expectBounds(failed, *expected.bounds);
    else
        expectNoBounds(failed);
    EXPECT_EQ(failure.name == "ECapeOutOfBounds", expected.bounds.has_value());
    EXPECT_EQ(requestedOperationOf(failed), expected.requestedOperation);
    EXPECT_EQ(failure.name == "ECapeBadInvOrder", *expected.requestedOperation != '\0');
}

using ErrorInterfaces = ErrorHost;

TEST_F(ErrorInterfaces, AreAllThereBeforeTheFirstFailure)
{
    for (IUnknown *object : {static_cast<IUnknown *>(compounds.get()), static_cast<IUnknown *>(manager.get())}) {
        expectErrorInterfaces(object);
        EXPECT_EQ(positionIn(object), 0);
        EXPECT_EQ(requestedOperationOf(object), "");
        expectNoBounds(object);
    }
}

TEST_F(ErrorInterfaces, ForgetTheFailureBefore)
{
    EXPECT_LT(lnPhi("Vapor", 4.0, 1e5, {1.0, 0.0, 0.0}), 0);
    EXPECT_EQ(positionIn(failed), 2);
    expectBounds(failed, {20.0, 1500.0, 4.0, "temperature"});
    EXPECT_LT(utilitiesOf(failed)->Edit(), 0);
    EXPECT_EQ(positionIn(failed), 0);
    expectNoBounds(failed);
    EXPECT_EQ(context->UnsetMaterial(), S_OK);
    EXPECT_LT(flash(), 0);
    EXPECT_EQ(requestedOperationOf(failed), "SetMaterial");
    EXPECT_LT(phaseInfo("Solid", ""), 0);
    EXPECT_EQ(requestedOperationOf(failed), "");
}

TEST_F(ErrorInterfaces, TellTheInnermostOfSeveralCalculations)
{
    const HRESULT result = meanwhile([&] {
        HRESULT inner = S_OK;
        atNextCall = [&] { inner = context->UnsetMaterial(); };
        EXPECT_EQ(ofPhase({"volume"}), S_OK);
        EXPECT_EQ(requestedOperationOf(failed), "CalcSinglePhaseProp");
        EXPECT_EQ(context->UnsetMaterial(), inner);
        EXPECT_EQ(requestedOperationOf(failed), "CalcEquilibrium");
        return inner;
    });
    EXPECT_EQ(result, static_cast<HRESULT>(0x80040511));
    EXPECT_EQ(context->UnsetMaterial(), S_OK);
}

TEST_F(ErrorInterfaces, TellTheResultOfTheObjectThatRefused)
{
    material.refused = "GetTPFraction";
    EXPECT_LT(ofPhase({"volume"}), 0);
    Bstr information;
    EXPECT_EQ(as<ECapeUser>(failed)->get_moreInfo(information.out()), S_OK);
    EXPECT_TRUE(narrow(information.get()).ends_with("The other object answered 0x80040501"))
        << narrow(information.get());
}

TEST_F(ErrorInterfaces, DoNotWriteToNullPointers)
{
    ExpectNullPointersRefused(*as<ECapeRoot>(failed).get(), *as<ECapeUser>(failed).get());
    const auto bounds = as<ECapeBoundaries>(failed);
    EXPECT_EQ(bounds->get_LowerBound(nullptr), E_POINTER);
    EXPECT_EQ(bounds->get_UpperBound(nullptr), E_POINTER);
    EXPECT_EQ(bounds->get_value(nullptr), E_POINTER);
    EXPECT_EQ(bounds->get_Type(nullptr), E_POINTER);
    EXPECT_EQ(as<ECapeBadArgument>(failed)->get_position(nullptr), E_POINTER);
    EXPECT_EQ(as<ECapeBadInvOrder>(failed)->get_requestedOperation(nullptr), E_POINTER);
}
