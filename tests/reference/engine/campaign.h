// How much of a campaign of random states runs.
#pragma once

// The engine is the same everywhere: natively a campaign runs whole, and where that takes long, the first part of it.
constexpr int campaignPart = CAMPAIGN_PART;
