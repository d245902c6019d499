// Feeds as engineers have them, by kind, with temperatures and pressures at random.
#pragma once

#include "reference/engine/phase/mixture_model.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace reference {

struct FeedCase {
    std::shared_ptr<const MixtureModel> model;
    std::vector<double> z;
    double temperature;
    double pressure;

    std::string describe() const;
};

struct FeedFamily {
    const char *name;
    FeedCase (*make)(std::uint64_t seed);
};

// Every case follows from its seed alone.
std::span<const FeedFamily> feedFamilies();

} // namespace reference
