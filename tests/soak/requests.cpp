#include "tests/soak/requests.h"

#include <gtest/gtest.h>

using namespace support;

namespace soak {

namespace {

constexpr const char *manager = "Verdanth Reference Packages";
constexpr const char *packageNames[] = {"Natural gas", "Air", "Refinery gas", "Aromatics", "Refrigerants"};
constexpr const char *standAlone = "Verdanth Natural Gas (stand-alone)";

} // namespace

void Requests::makeOne()
{
    if (packages.empty() || (packages.size() < 4 && choose(50) == 0)) {
        open();
        return;
    }
    const Package package = packages[choose(packages.size())];
    switch (choose(16)) {
    case 0:
        if (choose(40) == 0)
            closeOne();
        else
            report(package);
        break;
    case 1:
    case 2:
        mistake(package);
        break;
    case 3:
    case 4:
    case 5:
        flash(package);
        break;
    case 6:
    case 7:
    case 8:
        report(package);
        break;
    default:
        calculate(package);
        break;
    }
}

host::CallResult Requests::call(int nlhs, const std::vector<host::Array> &arguments)
{
    ++calls;
    host::CallResult result = matlab.call(nlhs, arguments);
    refused += !result.returned;
    warned += result.warnings.size();
    EXPECT_NE(result.returned, !result.error.empty());
    return result;
}

void Requests::compute(int nlhs, const std::vector<host::Array> &arguments)
{
    calculated += call(nlhs, arguments).returned;
}

void Requests::open()
{
    const std::size_t choice = choose(std::size(packageNames) + 1);
    const bool alone = choice == std::size(packageNames);
    const std::size_t before = packages.size();
    const host::CallResult opened =
        call(1, {Scalar(3), Text(alone ? standAlone : manager), Text(alone ? "" : packageNames[choice])});
    ASSERT_TRUE(opened.returned) << opened.error;
    namesLent += !alone;
    ++this->opened;
    const std::int32_t handle = opened[0].int32();
    for (const Package &package : packages)
        if (package.handle == handle) // it was open
            return;
    const host::CallResult compounds = call(1, {Scalar(7), Int32(handle)});
    ASSERT_TRUE(compounds.returned) << compounds.error;
    packages.push_back({handle, compounds[0].count()});
    EXPECT_EQ(packages.size(), before + 1);
}

void Requests::closeOne()
{
    const std::size_t index = choose(packages.size());
    EXPECT_TRUE(call(0, {Scalar(4), Int32(packages[index].handle)}).returned);
    packages.erase(packages.begin() + static_cast<std::ptrdiff_t>(index));
}

host::Array Requests::column(std::size_t rows, double from, double to)
{
    std::vector<double> values(rows);
    for (double &value : values)
        value = number(from, to);
    return Column(values);
}

host::Array Requests::composition(const Package &package, std::size_t rows)
{
    std::vector<std::vector<double>> fractions(rows, std::vector<double>(package.compounds));
    for (std::vector<double> &row : fractions) {
        double sum = 0;
        for (double &fraction : row)
            sum += fraction = number(0, 1);
        for (double &fraction : row)
            fraction /= sum;
    }
    return Matrix(fractions);
}

void Requests::report(const Package &package)
{
    const Array handle = Int32(package.handle);
    const std::vector<std::vector<Array>> requests = {
        {Scalar(1)},
        {Scalar(2), Text(standAlone)},
        {Scalar(5)},
        {Scalar(6), handle},
        {Scalar(8), handle},
        {Scalar(9), handle, Text("Vapor")},
        {Scalar(10 + static_cast<double>(choose(6))), handle},
        {Scalar(16), handle, Text(choose(2) ? "criticalTemperature" : "chemicalFormula")},
        {Scalar(19), Text("enthalpy.Dtemperature")},
        {Scalar(26)}};
    call(1, requests[choose(requests.size())]);
    if (choose(20) == 0)
        call(0, {Scalar(18), Text(choose(2) ? "mass" : "mole")});
    if (choose(20) == 0)
        call(0, {Scalar(17), Scalar(static_cast<double>(choose(2)))});
}

void Requests::calculate(const Package &package)
{
    const Array handle = Int32(package.handle);
    const std::size_t rows = 1 + choose(4);
    const Array temperatures = column(rows, 200, 500);
    const Array pressures = column(rows, 1e5, 5e6);
    switch (choose(4)) {
    case 0:
        compute(1, {Scalar(20), Scalar(2), handle, Text("vaporPressure idealGasHeatCapacity"), temperatures});
        break;
    case 1:
        compute(1, {Scalar(21), Scalar(1), handle, Text("boilingPointTemperature"), pressures});
        break;
    case 2:
        compute(1, {Scalar(23), Scalar(1), handle, Text("kvalue"), temperatures, pressures, composition(package, rows),
                    composition(package, 1), Text("Vapor"), Text("Liquid")});
        break;
    default:
        compute(1, {Scalar(22), Scalar(3), handle, Texts({"enthalpy", "volume fugacityCoefficient"}), temperatures,
                    pressures, composition(package, rows), Text(choose(2) ? "Vapor" : "Liquid")});
        break;
    }
}

void Requests::flash(const Package &package)
{
    const Array handle = Int32(package.handle);
    if (choose(2)) {
        compute(5, {Scalar(24), handle, composition(package, 1), Text("Temperature"), column(1, 200, 400),
                    Text("Pressure"), column(1, 1e5, 5e6), Text("Unspecified")});
        return;
    }
    const std::size_t rows = 1 + choose(3);
    // Some of the temperatures are outside of what the packages take: NaN and a warning.
    compute(1,
            {Scalar(25), handle, composition(package, rows), Text("Temperature"), column(rows, -50, 400),
             Text("Pressure"), column(rows, 1e5, 5e6), Text("Unspecified"), Scalar(2), Text("vaporFraction enthalpy")});
}

void Requests::mistake(const Package &package)
{
    const Array handle = Int32(package.handle);
    const std::vector<std::vector<Array>> requests = {{Scalar(2), Text("nobody")},
                                                      {Scalar(3), Text("nobody"), Text("nothing")},
                                                      {Scalar(3), Text(manager), Text("nothing")},
                                                      {Scalar(6), Int32(-1)},
                                                      {Scalar(9), handle, Text("Plasma")},
                                                      {Scalar(16), handle, Text("shade")},
                                                      {Scalar(19), Text("nothing.Dtemperature")},
                                                      {Scalar(22), Scalar(1), handle, Text("nothing"), Scalar(300),
                                                       Scalar(1e5), composition(package, 1), Text("Vapor")},
                                                      {Scalar(22), Scalar(1), handle, Text("volume"), Scalar(-1),
                                                       Scalar(1e5), composition(package, 1), Text("Vapor")},
                                                      {Scalar(25), handle, composition(package, 1), Text("nothing"),
                                                       Scalar(300), Text("Pressure"), Scalar(1e5), Text(""), Scalar(1),
                                                       Text("Temperature")},
                                                      {Scalar(99)},
                                                      {Text("22")}};
    const std::size_t choice = choose(requests.size());
    namesLent += choice == 2;
    EXPECT_FALSE(call(1, requests[choice]).returned) << choice;
}

} // namespace soak
