// What the table holds while a record of it is being destroyed.
#include "gateway/state/global_lists.h"
#include "packages/package_table.h"
#include "tests/support/without_names.h"

#include <gtest/gtest.h>

namespace {

// Lists the handles when it is released.
class WatchingPackage final : public WithoutNames<IDispatch> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void **object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        ListPackageHandles();
        handlesAtRelease = HandleList;
        return 0;
    }

    std::vector<std::int32_t> handlesAtRelease;
};

std::int32_t add(WatchingPackage &package)
{
    auto record = std::make_unique<OpenPackage>();
    record->package = &package;
    return AddPackage(std::move(record));
}

} // namespace

TEST(PackageTable, KeepsTheEntryUntilTheRecordIsDestroyed)
{
    WatchingPackage package;
    const std::int32_t handle = add(package);
    EXPECT_TRUE(ClosePackage(handle));
    EXPECT_EQ(package.handlesAtRelease, std::vector<std::int32_t>{handle});
    EXPECT_EQ(FindPackage(handle), nullptr);
    EXPECT_FALSE(ClosePackage(handle));
}

TEST(PackageTable, IsEmptiedWhenAllRecordsAreDestroyed)
{
    WatchingPackage packages[3];
    for (WatchingPackage &package : packages)
        add(package);
    CloseAllPackages();
    for (const WatchingPackage &package : packages)
        EXPECT_EQ(package.handlesAtRelease.size(), 3u);
    ListPackageHandles();
    EXPECT_EQ(HandleList, std::vector<std::int32_t>());
}
