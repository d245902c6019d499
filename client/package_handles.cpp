#include "client/package_handles.h"
#include "client/command_names.h"

#include <cstring>
#include <optional>

namespace {

constexpr int createCode = 3;
constexpr int releaseCode = 4;

std::optional<std::int32_t> handleIn(const std::vector<wire::Value> &values, std::size_t place)
{
    if (place >= values.size() || values[place].type != wire::Class::Int32 || ElementCount(values[place]) != 1)
        return {};
    std::int32_t handle = 0;
    std::memcpy(&handle, values[place].real, sizeof handle);
    return handle;
}

std::optional<std::int32_t> handleGivenTo(int code, const std::vector<wire::Value> &arguments)
{
    const CommandWords *command = WordsOf(code);
    if (!command || command->handle == 0)
        return {};
    return handleIn(arguments, static_cast<std::size_t>(command->handle));
}

} // namespace

void PackageHandles::note(int code, const std::vector<wire::Value> &arguments, const std::vector<wire::Value> &results)
{
    if (code == createCode)
        if (const auto handle = handleIn(results, 0)) {
            open.insert(*handle);
            lost.erase(*handle);
        }
    if (code == releaseCode)
        if (const auto handle = handleGivenTo(code, arguments))
            open.erase(*handle);
}

void PackageHandles::lose(const std::string &reason)
{
    for (const std::int32_t handle : open)
        lost[handle] = reason;
    open.clear();
}

void PackageHandles::clear()
{
    open.clear();
    lost.clear();
}

std::string PackageHandles::explanation(int code, const std::vector<wire::Value> &arguments) const
{
    const auto handle = handleGivenTo(code, arguments);
    const auto found = handle ? lost.find(*handle) : lost.end();
    return found == lost.end() ? "" : ": its package was lost with its process (" + found->second + ")";
}
