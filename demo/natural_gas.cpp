// A property package in use, from the registry to a flash: what a MATLAB script would do, call by
// call, with the reference package of natural gas.
#include "demo/session.h"

#include <cstdio>

using namespace host;

namespace {

constexpr const char *managerName = "Verdanth Reference Packages";
constexpr const char *packageName = "Natural gas";

struct Component {
    const char *compound;
    double moleFraction;
};

constexpr Component gas[] = {
    {"methane", 0.80},   {"ethane", 0.08},   {"propane", 0.05},        {"n-butane", 0.02},
    {"n-pentane", 0.01}, {"nitrogen", 0.02}, {"carbon dioxide", 0.02},
};
constexpr double temperature = 220; // K
constexpr double pressure = 40.0e5; // Pa

void printList(const char *title, const std::vector<std::string> &texts)
{
    std::printf("%s\n", title);
    for (const std::string &text : texts)
        std::printf("    %s\n", text.c_str());
}

// The composition in the package's order of compounds; compounds that the gas lacks get zero.
std::vector<double> compositionFor(const std::vector<std::string> &compounds)
{
    std::vector<double> fractions(compounds.size(), 0.0);
    for (const Component &component : gas)
        for (std::size_t i = 0; i < compounds.size(); ++i)
            if (compounds[i] == component.compound)
                fractions[i] = component.moleFraction;
    return fractions;
}

struct Phases {
    std::vector<std::string> labels;
    std::vector<std::vector<double>> compositions; // mole fractions by phase
};

// Compositions are given in the default basis: mole fractions become mass fractions with the
// molecular weights, a constant of the package.
std::vector<double> massFractions(const std::vector<double> &moleFractions, const std::vector<double> &molecularWeights)
{
    double total = 0;
    std::vector<double> fractions(moleFractions);
    for (std::size_t i = 0; i < fractions.size(); ++i)
        total += fractions[i] *= molecularWeights[i];
    for (double &fraction : fractions)
        fraction /= total;
    return fractions;
}

Phases flash(Session &session, const Array &package, const std::vector<std::string> &compounds)
{
    const std::vector<double> composition = compositionFor(compounds);
    const std::vector<Array> results =
        session.call(24, 5,
                     {package, Row(composition), Text("Temperature"), Scalar(temperature), Text("Pressure"),
                      Scalar(pressure), Text("Unspecified")});
    Phases phases;
    phases.labels = Printable(results[0].texts());
    const std::vector<double> fractions = results[1].numbers();
    phases.compositions = results[2].matrix();
    const std::size_t count = phases.labels.size();
    std::printf("\nFlash at %g K and %g bar\n\n    %-20s %10s", temperature, pressure / 1e5, "mole fraction", "feed");
    for (const std::string &label : phases.labels)
        std::printf(" %10s", label.c_str());
    std::printf("\n    %-20s %10.6f", "of the total", 1.0);
    for (std::size_t p = 0; p < count; ++p)
        std::printf(" %10.6f", fractions[p]);
    std::printf("\n");
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        std::printf("    %-20s %10.6f", compounds[i].c_str(), composition[i]);
        for (std::size_t p = 0; p < count; ++p)
            std::printf(" %10.6f", phases.compositions[p][i]);
        std::printf("\n");
    }
    return phases;
}

// Density and enthalpy of one phase of fixed composition over ten temperatures, in the basis that
// was set last.
void tabulate(Session &session, const Array &package, const std::string &phase, const std::vector<double> &composition)
{
    std::vector<double> temperatures(10);
    for (std::size_t i = 0; i < temperatures.size(); ++i)
        temperatures[i] = 200 + 5.0 * static_cast<double>(i);
    const Array values = session.call(22, {Scalar(2), package, Texts({"density", "enthalpy"}), Column(temperatures),
                                           Scalar(pressure), Row(composition), Text(phase)});
    const std::string densityUnit = Printable(session.call(19, {Text("density")}).text());
    const std::string enthalpyUnit = Printable(session.call(19, {Text("enthalpy")}).text());
    const std::vector<double> density = values.element(0).numbers();
    const std::vector<double> enthalpy = values.element(1).numbers();
    std::printf("\n    %-10s %16s %18s\n", "T / K", ("density / (" + densityUnit + ")").c_str(),
                ("enthalpy / (" + enthalpyUnit + ")").c_str());
    for (std::size_t c = 0; c < temperatures.size(); ++c)
        std::printf("    %-10g %16.5f %18.3f\n", temperatures[c], density[c], enthalpy[c]);
}

void tabulateInBasis(Session &session, const Array &package, const Phases &phases, const std::string &basis)
{
    session.call(18, 0, {Text(basis)});
    const std::vector<double> weights = session.call(16, {package, Text("molecularWeight")}).numbers();
    for (std::size_t p = 0; p < phases.labels.size(); ++p) {
        const std::vector<double> &moleFractions = phases.compositions[p];
        std::printf("\n%s of this composition at %g bar, %s basis\n", phases.labels[p].c_str(), pressure / 1e5,
                    basis.c_str());
        tabulate(session, package, phases.labels[p],
                 basis == "mass" ? massFractions(moleFractions, weights) : moleFractions);
    }
}

} // namespace

int main()
{
    Session session;
    std::printf("%s\n\n", Printable(session.call(26, {}).text()).c_str());
    printList("Property package managers and stand-alone packages", Printable(session.call(1, {}).texts()));
    printList("\nPackages of \"Verdanth Reference Packages\"", Printable(session.call(2, {Text(managerName)}).texts()));
    const Array package = session.call(3, {Text(managerName), Text(packageName)});
    const std::vector<std::string> compounds = Printable(session.call(7, {package}).texts());

    const Phases phases = flash(session, package, compounds);
    tabulateInBasis(session, package, phases, "mole");
    tabulateInBasis(session, package, phases, "mass");
    session.call(4, 0, {package});
    return 0;
}
