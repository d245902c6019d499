// Calls of every command, good and bad, in an order that a number decides.
#pragma once

#include "tests/support/mex_host.h"

#include <cstdint>
#include <random>
#include <vector>

namespace soak {

class Requests {
public:
    explicit Requests(support::MexHost &library, std::uint32_t seed) : matlab(library), random(seed) {}

    void makeOne();

    // What was asked for so far.
    std::size_t calls = 0;
    std::size_t calculated = 0; // commands that gave their values
    std::size_t refused = 0;
    std::size_t warned = 0;
    std::size_t opened = 0;
    std::size_t namesLent = 0; // package names that a manager was given for good

private:
    struct Package {
        std::int32_t handle;
        std::size_t compounds;
    };

    void open();
    void closeOne();
    void report(const Package &package);
    void calculate(const Package &package);
    void flash(const Package &package);
    void mistake(const Package &package);

    host::CallResult call(int nlhs, const std::vector<host::Array> &arguments);
    void compute(int nlhs, const std::vector<host::Array> &arguments); // calls, and counts what was calculated
    std::size_t choose(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random); }
    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); }
    host::Array composition(const Package &package, std::size_t rows);
    host::Array column(std::size_t rows, double from, double to);

    support::MexHost &matlab;
    std::mt19937 random;
    std::vector<Package> packages;
};

} // namespace soak
