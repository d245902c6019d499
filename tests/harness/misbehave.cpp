// Does one wrong thing on request, so that the tests of the test bed can see that it is noticed.
#include <cstddef>
#include <limits>
#include <string_view>

static void overrunABlock()
{
    volatile std::size_t size = 16;
    volatile char *block = new char[size];
    block[size] = 1;
    delete[] block;
}

static void leakBlocks()
{
    for (int i = 0; i < 100; ++i) {
        volatile char *block = new char[1000];
        block[0] = 1;
    }
}

static int overflowAnInteger()
{
    volatile int greatest = std::numeric_limits<int>::max();
    return greatest + 1;
}

int main(int argc, char **argv)
{
    const std::string_view deed = argc > 1 ? argv[1] : "";
    if (deed == "nothing")
        return 0;
    if (deed == "trap")
        __builtin_trap();
    else if (deed == "overrun")
        overrunABlock();
    else if (deed == "leak")
        leakBlocks();
    else if (deed == "overflow")
        return overflowAnInteger() == 0;
    else
        return 2;
    return 0;
}
