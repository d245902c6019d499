// Cost of the bridge to Octave: the same calls of the reference package from C++ and from Octave, where bridge.m makes
// them. Fails when a call for one condition costs too much more in Octave, or one for many.
#include "host/command.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

using namespace host;

namespace {

constexpr double mostForOne = 15e-6; // s more
constexpr double mostForMany = 0.05; // of the time in C++
constexpr int rounds = 8;            // the two sides in turn, so that both see the same machine
constexpr int repetitions = 10;      // the shortest counts: what else the machine does only adds
constexpr int calls = 500;
constexpr std::size_t conditions = 100000;
constexpr std::array moleFractions = {0.8, 0.08, 0.05, 0.02, 0.0, 0.01, 0.0, 0.0, 0.02, 0.02, 0.0};

// The composition, once or for each of many conditions.
Array composition(std::size_t rows)
{
    Array array = Zeros({rows, moleFractions.size()});
    for (std::size_t i = 0; i < moleFractions.size(); ++i)
        std::fill_n(mxGetPr(array.get()) + i * rows, rows, moleFractions[i]);
    return array;
}

std::vector<double> temperatures(std::size_t count)
{
    std::vector<double> values(count, 300.0);
    for (std::size_t i = 1; i < count; ++i)
        values[i] = 300.0 + 100.0 * static_cast<double>(i) / static_cast<double>(count - 1);
    return values;
}

// Processor time of one call of command 22, the least of some; arguments are there, as they are in a script.
double secondsOfCall(const Array &handle, std::size_t rows, int callCount)
{
    const std::vector<Array> arguments = {
        Scalar(1),         handle,       Text("density"), Column(temperatures(rows)), Scalar(1.0e5),
        composition(rows), Text("Vapor")};
    double best = 1e9;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        const std::clock_t start = std::clock();
        for (int i = 0; i < callCount; ++i)
            Command(mexFunction, 22, 1, arguments);
        best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / callCount);
    }
    return best;
}

struct Seconds {
    double one = 1e9;
    double many = 1e9;

    void take(const Seconds &other)
    {
        one = std::min(one, other.one);
        many = std::min(many, other.many);
    }
};

Seconds secondsInOctave()
{
    Seconds seconds;
    std::FILE *octave = popen(BRIDGE_IN_OCTAVE, "r"); // NOLINT(cert-env33-c): a command of our own
    const int read = octave ? std::fscanf(octave, "%lf %lf", &seconds.one, &seconds.many) : 0; // NOLINT(cert-err34-c)
    if (!octave || pclose(octave) != 0 || read != 2) {
        std::fputs("bridge: Octave could not make the calls: " BRIDGE_IN_OCTAVE "\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return seconds;
}

} // namespace

int main()
{
    const Array handle = Command(mexFunction, 3, 1, {Text("Verdanth Reference Packages"), Text("Natural gas")}).front();
    Seconds here;
    Seconds octave;
    for (int round = 0; round < rounds; ++round) {
        here.take({secondsOfCall(handle, 1, calls), secondsOfCall(handle, conditions, 1)});
        octave.take(secondsInOctave());
    }
    const double more = octave.one - here.one;
    const double part = octave.many / here.many - 1;
    std::printf("capeOpenSinglePhaseProp      from C++      from Octave   difference\n");
    std::printf("one condition           %10.2f us %13.2f us %9.2f us, at most %g\n", here.one * 1e6, octave.one * 1e6,
                more * 1e6, mostForOne * 1e6);
    std::printf("%zu conditions       %10.2f ms %13.2f ms %9.2f %%,  at most %g\n", conditions, here.many * 1e3,
                octave.many * 1e3, part * 100, mostForMany * 100);
    if (more > mostForOne || part > mostForMany) {
        std::fputs("The bridge costs more than it may.\n", stderr);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
