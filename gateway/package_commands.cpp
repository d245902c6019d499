// Commands 1 to 4: what there is, opening and closing.
#include "gateway/global_lists.h"
#include "gateway/handle_argument.h"
#include "gateway/marshalling.h"
#include "gateway/report_commands.h"
#include "packages/discovery.h"
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
    const Verdict verdict = name.read(manager, "Expected string for argument");
    return verdict.isDone() ? Verdict::of(ListPackages(name.get())) : verdict;
}

Verdict createPackage(const mxArray *manager, const mxArray *package, std::int32_t &handle)
{
    StringArg managerName;
    Verdict verdict = managerName.read(manager, "Expected string for package manager name");
    if (!verdict.isDone())
        return verdict;
    StringArg packageName;
    verdict = packageName.read(package, "Expected string for package name");
    if (!verdict.isDone())
        return verdict;
    return Verdict::of(CreatePackage(managerName.get(), packageName.get(), handle));
}

} // namespace

Verdict ListPackagesCommand(const CommandCall &call)
{
    const Verdict verdict = listPackages(call.arguments[1]);
    if (verdict.isDone())
        PutStringCell(NameList, &call.results[0]);
    return verdict;
}

Verdict CreateCommand(const CommandCall &call)
{
    std::int32_t handle = 0;
    const Verdict verdict = createPackage(call.arguments[1], call.arguments[2], handle);
    if (!verdict.isDone())
        return verdict;
    const mwSize size = 1;
    call.results[0] = mxCreateNumericArray_730(1, &size, mxINT32_CLASS, mxREAL);
    *static_cast<std::int32_t *>(mxGetData(call.results[0])) = handle;
    return Verdict::done();
}

Verdict ReleaseCommand(const CommandCall &call)
{
    std::int32_t handle = 0;
    const Verdict verdict = ReadHandle(call.arguments[1], handle);
    if (!verdict.isDone())
        return verdict;
    return ClosePackage(handle) ? Verdict::done() : Verdict::refuse("Invalid property package handle");
}
