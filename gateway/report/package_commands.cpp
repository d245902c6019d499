// Commands 1 to 4: what there is, opening and closing.
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_lists.h"
#include "packages/discovery.h"
#include "packages/handle_argument.h"
#include "packages/package_creation.h"

Verdict ListManagersCommand(const CommandCall &call)
{
    ListPackageManagers();
    PutStringCell(NameList, &call.results[0]);
    return Verdict::done();
}

namespace {

// The argument strings are gone before any result is made.
Verdict listPackages(const mxArray *manager)
{
    StringArg name;
    if (Verdict verdict = name.read(manager, "Expected string for argument"); !verdict.isDone())
        return verdict;
    return Verdict::of(ListPackages(name.get()));
}

Verdict createPackage(const mxArray *manager, const mxArray *package, std::int32_t &handle)
{
    StringArg managerName;
    if (Verdict verdict = managerName.read(manager, "Expected string for package manager name"); !verdict.isDone())
        return verdict;
    StringArg packageName;
    if (Verdict verdict = packageName.read(package, "Expected string for package name"); !verdict.isDone())
        return verdict;
    return Verdict::of(CreatePackage(managerName.get(), packageName.get(), handle));
}

} // namespace

Verdict ListPackagesCommand(const CommandCall &call)
{
    if (Verdict verdict = listPackages(call.arguments[1]); !verdict.isDone())
        return verdict;
    PutStringCell(NameList, &call.results[0]);
    return Verdict::done();
}

Verdict CreateCommand(const CommandCall &call)
{
    std::int32_t handle = 0;
    if (Verdict verdict = createPackage(call.arguments[1], call.arguments[2], handle); !verdict.isDone())
        return verdict;
    const mwSize size = 1;
    call.results[0] = mxCreateNumericArray_730(1, &size, mxINT32_CLASS, mxREAL);
    *static_cast<std::int32_t *>(mxGetData(call.results[0])) = handle;
    return Verdict::done();
}

Verdict ReleaseCommand(const CommandCall &call)
{
    std::int32_t handle = 0;
    if (Verdict verdict = ReadHandle(call.arguments[1], handle); !verdict.isDone())
        return verdict;
    return ClosePackage(handle) ? Verdict::done() : Verdict::refuse("Invalid property package handle");
}
