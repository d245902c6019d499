// A call that no include shows: allowed from above the packages, and from nowhere else.
#include <cstdint>

struct OpenPackage;
OpenPackage *FindPackage(std::int32_t handle);

bool IsOpen(std::int32_t handle);
bool IsOpen(std::int32_t handle) { return FindPackage(handle) != nullptr; }
