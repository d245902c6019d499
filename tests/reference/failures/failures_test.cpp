// The n-th call of some kind fails, for n from 1 until an operation passes untouched: it gives an error code with an
// explanation or its whole answer, lets no exception out, leaves nothing behind, and gives its whole answer the next
// time.
#include "tests/mex/support/failing_call.h"
#include "tests/reference/failures/package_operations.h"

#include <algorithm>

using seam::NthCall;
using support::FailsToGetMemory;
using support::Gives;
using support::Lead;

namespace {

struct Failing {
    std::string what;
    std::string_view operation; // the package makes calls of this kind at least in this one
    Lead lead;
};

constexpr int mostCalls = 2000; // of one kind in one operation

class EachFailureOfAPackage : public testing::TestWithParam<PackageOperation> {
protected:
    void SetUp() override { support::ImportSlot::library = "VerdanthReference.dll"; }
    void TearDown() override { EXPECT_EQ(library.canUnloadNow(), S_OK); }

    void failEach(const Failing &failing)
    {
        const auto isTheOne = [&](const PackageOperation &operation) { return operation.name == failing.operation; };
        ASSERT_TRUE(std::any_of(PackageOperations().begin(), PackageOperations().end(), isTheOne));
        int n = 1;
        while (failOnce(failing, n) && !HasFailure())
            ASSERT_LT(++n, mostCalls);
        EXPECT_TRUE(n > 1 || !isTheOne(GetParam())) << failing.what << ": nothing was struck";
    }

    // False when nothing was struck.
    bool failOnce(const Failing &failing, int n)
    {
        SCOPED_TRACE(failing.what + ", call " + std::to_string(n));
        const PackageOperation &operation = GetParam();
        PackageHost host(library);
        if (!operation.is(setsMaterial)) {
            EXPECT_EQ(setMaterial(host), S_OK);
        }
        const OperationAnswer whole = run(host);
        EXPECT_EQ(FAILED(whole.result), operation.is(refuses)) << testing::PrintToString(whole);
        const ULONG references = host.material.references;
        current = &host;
        NthCall calls;
        OperationAnswer answer;
        {
            const auto led = failing.lead(calls);
            calls.failAt(n);
            answer = run(host);
        }
        const bool isRefused = FAILED(answer.result) && answer.result != whole.result;
        // The material said that it took what it did not keep.
        const bool isLost = SUCCEEDED(host.material.failure) && host.material.failed.starts_with("Set");
        if (calls.struck() && isRefused) {
            expectExplanation(host, answer.result);
        } else if (!calls.struck() || !isLost) {
            const bool saysNo = operation.is(answersNo) && calls.struck();
            EXPECT_TRUE(answer == whole || (saysNo && answer == OperationAnswer{S_OK, "0"}))
                << testing::PrintToString(answer);
        }
        EXPECT_EQ(host.material.references, references);
        EXPECT_EQ(run(host), whole) << "the next time";
        host.context->UnsetMaterial();
        EXPECT_EQ(host.material.references, 1u);
        return calls.struck();
    }

    Failing ofTheMaterial(HRESULT result, const std::string &what)
    {
        struct Led {
            explicit Led(TestMaterial &m) : material(m) {}
            ~Led() { material.failing = nullptr; }
            TestMaterial &material;
        };
        return {what, "CalcSinglePhaseProp", [this, result](NthCall &calls) {
                    current->material.failing = &calls;
                    current->material.failure = result;
                    return std::make_shared<Led>(current->material);
                }};
    }

    Library library;

private:
    static HRESULT setMaterial(PackageHost &host)
    {
        return host.context->SetMaterial(static_cast<ICapeThermoMaterial *>(&host.material));
    }

    static OperationAnswer run(PackageHost &host)
    {
        try {
            return GetParam().run(host);
        } catch (...) {
            ADD_FAILURE() << "an exception came out of the package";
            return {E_UNEXPECTED, ""};
        }
    }

    static void expectExplanation(PackageHost &host, HRESULT result)
    {
        if (result == E_OUTOFMEMORY)
            return;
        LONG code = 0;
        EXPECT_EQ(host.errors->get_code(&code), S_OK);
        EXPECT_EQ(code, result);
        EXPECT_NE(lastFailure(host.compounds.get()).description, "");
    }

    PackageHost *current = nullptr;
};

} // namespace

TEST_P(EachFailureOfAPackage, OfTheSystem)
{
    failEach({"memory", "CreatePackage", FailsToGetMemory()});
    failEach({"SysAllocStringLen", "ComponentName", Gives<"SysAllocStringLen">(SysAllocStringLen, nullptr)});
    failEach(
        {"SafeArrayCreateVector", "GetCompoundList", Gives<"SafeArrayCreateVector">(SafeArrayCreateVector, nullptr)});
    failEach({"SafeArrayAccessData", "CalcSinglePhaseProp",
              Gives<"SafeArrayAccessData">(SafeArrayAccessData, E_UNEXPECTED)});
}

TEST_P(EachFailureOfAPackage, OfTheMaterial)
{
    failEach(ofTheMaterial(reference::errors::unknown.result, "a failure with words"));
    failEach(ofTheMaterial(E_FAIL, "a failure of no standard"));
    failEach(ofTheMaterial(E_OUTOFMEMORY, "no memory"));
    failEach(ofTheMaterial(S_OK, "a success without values"));
    failEach(ofTheMaterial(S_FALSE, "S_FALSE without values"));
}

INSTANTIATE_TEST_SUITE_P(InOperation, EachFailureOfAPackage, testing::ValuesIn(PackageOperations()),
                         [](const auto &info) { return std::string(info.param.name); });
