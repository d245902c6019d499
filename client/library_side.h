// The library as a caller sees it, wherever it runs.
#pragma once

#include "wire/value.h"

#include <string>
#include <vector>

class LibrarySide {
public:
    // Makes ready what calls need; a call does so by itself. False as with call().
    virtual bool start() = 0;

    // Calls the library. False when it raised; then error() is its text and there are no results. At least one result
    // comes back otherwise; its data live until release().
    virtual bool call(int outputs, const std::vector<wire::Value> &arguments) = 0;
    virtual const std::vector<wire::Value> &results() const = 0;
    virtual const std::string &error() const = 0;
    virtual bool stopped() const = 0; // whether it is false because the user wished to wait no longer
    virtual const std::vector<std::string> &warnings() const = 0; // of the last call, in order
    virtual void release() = 0;

    // Runs the library's exit routine and unloads it; the next call loads it again.
    virtual void unload() = 0;

    virtual std::string description() = 0; // in a line: what runs where

protected:
    ~LibrarySide() = default;
};
