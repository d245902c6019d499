#include "tests/toolbox/windows/workplace.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

std::string Workplace::told;

Workplace::Workplace()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "verdanth a place.XXXXXX").string();
    folder = mkdtemp(pattern.data());
    told.clear();
    caller = {[] { return false; }, [](const char *message) { told += std::string(message) + "\n"; }};
    for (const char *variable : {"VERDANTH_WINEPREFIX", "VERDANTH_WINDOWS_FILES", "VERDANTH_WINE_LOADER",
                                 "VERDANTH_TIME_LIMIT", "VERDANTH_START_LIMIT", "XDG_DATA_HOME"})
        unset(variable);
}

Workplace::~Workplace()
{
    for (const auto &[variable, value] : before)
        if (value)
            setenv(variable.c_str(), value->c_str(), 1);
        else
            unsetenv(variable.c_str());
    std::filesystem::remove_all(folder);
}

void Workplace::keep(const char *variable)
{
    const char *value = std::getenv(variable);
    before.try_emplace(variable, value ? std::optional<std::string>(value) : std::nullopt);
}

void Workplace::set(const char *variable, const std::string &value)
{
    keep(variable);
    setenv(variable, value.c_str(), 1);
}

void Workplace::unset(const char *variable)
{
    keep(variable);
    unsetenv(variable);
}

std::string Workplace::write(const std::string &name, const std::string &content)
{
    std::filesystem::create_directories(std::filesystem::path(file(name)).parent_path());
    std::ofstream(file(name)) << content;
    return file(name);
}

std::string Workplace::script(const std::string &name, const std::string &body)
{
    write(name, "#!/bin/sh\n" + body + "\n");
    std::filesystem::permissions(file(name), std::filesystem::perms::owner_all);
    return file(name);
}

std::string Workplace::contentOf(const std::string &file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}
