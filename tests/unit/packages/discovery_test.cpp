// Sources of a kind that no registry produces.
#include "gateway/state/global_text.h"
#include "packages/discovery.h"
#include "packages/package_creation.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

class UnknownKind : public testing::TestWithParam<std::int32_t> {
protected:
    void SetUp() override
    {
        ScanRegistry();
        before = std::exchange(PackageSourceList, {});
        // Its class id is wrong, too, but the kind is looked at first.
        PackageSourceList.push_back({OLESTR("odd"), GetParam(), OLESTR("no class id")});
    }
    void TearDown() override { PackageSourceList = std::move(before); }

private:
    std::vector<PackageSource> before;
};

} // namespace

TEST_P(UnknownKind, OfASourceIsAnInternalErrorWhenItsPackagesAreListed)
{
    EXPECT_FALSE(ListPackages(OLESTR("odd")));
    EXPECT_EQ(LastError, OLESTR("internal error: unknown ppm type"));
}

TEST_P(UnknownKind, OfASourceIsAnInternalErrorWhenAPackageIsCreated)
{
    int anything = 0;
    auto *package = reinterpret_cast<IDispatch *>(&anything);
    EXPECT_FALSE(CreatePackageObject(package, OLESTR("odd"), OLESTR("P")));
    EXPECT_EQ(package, nullptr);
    EXPECT_EQ(LastError, OLESTR("internal error: unknown ppm type"));
}

INSTANTIATE_TEST_SUITE_P(Is, UnknownKind, testing::Values(2, -1));
