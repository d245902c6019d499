// How much of a campaign of random states runs where.
#pragma once

// The engine is the same everywhere: natively a campaign runs whole, and where that takes long, under Wine and with
// sanitizers, the first quarter of it.
#if defined(_WIN32) || defined(__SANITIZE_ADDRESS__)
constexpr int campaignPart = 4;
#else
constexpr int campaignPart = 1;
#endif
