// A folder of a test's own, programs in it, and variables of the environment that are as they were afterwards.
#pragma once

#include "client/caller.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

class Workplace : public testing::Test {
protected:
    Workplace();
    ~Workplace() override;

    void set(const char *variable, const std::string &value);
    void unset(const char *variable);
    std::string file(const std::string &name) const { return folder + "/" + name; }
    std::string write(const std::string &name, const std::string &content); // gives the file
    std::string script(const std::string &name, const std::string &body);   // a program of the shell
    static std::string contentOf(const std::string &file);

    std::string folder;
    Caller caller; // waits on, and keeps what it is told
    static std::string told;

private:
    void keep(const char *variable);

    std::map<std::string, std::optional<std::string>> before;
};
