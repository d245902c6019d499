// What a user waits for once: the first command after loading, and the scan of a class registry of
// 20,000 classes; and what every call costs: a command that has next to nothing to do.
#include "bench/support/library.h"

#include <benchmark/benchmark.h>

namespace {

void firstCommand(benchmark::State &state)
{
    for (auto _ : state)
        Call(5, 1, {});
}

void registryScan(benchmark::State &state)
{
    constexpr int classes = 20000;
    for (int i = 0; i < classes; ++i) {
        WCHAR path[80];
        swprintf(path, 80, OLESTR("CLSID\\{%08X-0000-4000-8000-000000000000}\\InprocServer32"), i);
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
        RegCloseKey(key);
    }
    for (auto _ : state)
        Call(1, 1, {});
}

void emptyCall(benchmark::State &state)
{
    for (auto _ : state)
        Call(5, 1, {});
}

// The first two happen once in a process.
BENCHMARK(firstCommand)->Iterations(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(registryScan)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(emptyCall)->Unit(benchmark::kNanosecond);

} // namespace

BENCHMARK_MAIN();
