// The time that something may take.
#pragma once

#include <algorithm>
#include <chrono>

class Deadline {
public:
    explicit Deadline(double seconds) : whole(seconds) {} // from now on; 0 is as long as it takes

    bool isOver() const { return whole > 0 && gone() > whole; }
    double left() const { return whole > 0 ? std::max(whole - gone(), 1e-3) : 0; } // as in the constructor

private:
    double gone() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count(); }

    double whole;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
};
