#include "reference/engine/compound_data.h"

#include <algorithm>
#include <limits>

namespace reference {

namespace {

constexpr double notDefined = std::numeric_limits<double>::quiet_NaN();

// Molecular weights are sums of the standard atomic weights of 2005 (IUPAC; C 12.0107, H 1.00794,
// N 14.0067, O 15.9994, S 32.065).
//
// Critical point, acentric factor and normal boiling point are those of the reference equation of
// state of each fluid, which the NIST Chemistry WebBook (SRD 69, thermophysical properties of fluid
// systems) uses too:
//   methane            Setzmann, Wagner, J. Phys. Chem. Ref. Data 20 (1991) 1061
//   ethane             Buecker, Wagner, J. Phys. Chem. Ref. Data 35 (2006) 205
//   propane            Lemmon, McLinden, Wagner, J. Chem. Eng. Data 54 (2009) 3141
//   n-butane, isobutane  Buecker, Wagner, J. Phys. Chem. Ref. Data 35 (2006) 929
//   n-pentane, n-hexane  Span, Wagner, Int. J. Thermophys. 24 (2003) 41
//   isopentane, hydrogen sulfide  Lemmon, Span, J. Chem. Eng. Data 51 (2006) 785
//   nitrogen           Span et al., J. Phys. Chem. Ref. Data 29 (2000) 1361
//   carbon dioxide     Span, Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509
//
// Ideal-gas heat capacities: Poling, Prausnitz, O'Connell, The Properties of Gases and Liquids,
// 5th ed. (2001), Appendix A, Section C; fitted from 50 K (n-alkanes from butane on: 200 K) to 1000 K.
constexpr CompoundData compounds[] = {
    {"methane",
     "methane",
     "CH4",
     "74-82-8",
     16.04246,
     190.564,
     4.5992e6,
     0.01142,
     111.667,
     {4.568, -8.975e-3, 3.631e-5, -3.407e-8, 1.091e-11}},
    {"ethane",
     "ethane",
     "C2H6",
     "74-84-0",
     30.06904,
     305.322,
     4.8722e6,
     0.0995,
     184.569,
     {4.178, -4.427e-3, 5.660e-5, -6.651e-8, 2.487e-11}},
    {"propane",
     "propane",
     "C3H8",
     "74-98-6",
     44.09562,
     369.89,
     4.2512e6,
     0.1521,
     231.036,
     {3.847, 5.131e-3, 6.011e-5, -7.893e-8, 3.079e-11}},
    {"n-butane",
     "butane",
     "C4H10",
     "106-97-8",
     58.1222,
     425.125,
     3.796e6,
     0.201,
     272.660,
     {5.547, 5.536e-3, 8.057e-5, -10.571e-8, 4.134e-11}},
    {"isobutane",
     "2-methylpropane",
     "C4H10",
     "75-28-5",
     58.1222,
     407.81,
     3.629e6,
     0.184,
     261.401,
     {3.351, 17.883e-3, 5.477e-5, -8.099e-8, 3.243e-11}},
    {"n-pentane",
     "pentane",
     "C5H12",
     "109-66-0",
     72.14878,
     469.70,
     3.370e6,
     0.251,
     309.21,
     {7.554, -0.368e-3, 11.846e-5, -14.939e-8, 5.753e-11}},
    {"isopentane",
     "2-methylbutane",
     "C5H12",
     "78-78-4",
     72.14878,
     460.35,
     3.378e6,
     0.2274,
     300.98,
     {1.959, 38.191e-3, 2.434e-5, -5.175e-8, 2.165e-11}},
    {"n-hexane",
     "hexane",
     "C6H14",
     "110-54-3",
     86.17536,
     507.82,
     3.034e6,
     0.299,
     341.86,
     {8.831, -0.166e-3, 14.302e-5, -18.314e-8, 7.124e-11}},
    {"nitrogen",
     "nitrogen",
     "N2",
     "7727-37-9",
     28.0134,
     126.192,
     3.3958e6,
     0.0372,
     77.355,
     {3.539, -0.261e-3, 0.007e-5, 0.157e-8, -0.099e-11}},
    {"carbon dioxide",
     "carbon dioxide",
     "CO2",
     "124-38-9",
     44.0095,
     304.1282,
     7.3773e6,
     0.22394,
     notDefined,
     {3.259, 1.356e-3, 1.502e-5, -2.374e-8, 1.056e-11}},
    {"hydrogen sulfide",
     "hydrogen sulfide",
     "H2S",
     "7783-06-4",
     34.08088,
     373.1,
     9.000e6,
     0.1005,
     212.85,
     {4.266, -3.468e-3, 1.319e-5, -1.331e-8, 0.488e-11}},
};

// Interaction parameters for the Peng-Robinson equation: Whitson, Brule, Phase Behavior, SPE
// Monograph 20 (2000), Table 4.1, after Nagy and Shirkovskiy. Pairs of hydrocarbons have none.
struct InteractionRow {
    std::string_view compound;
    double withNitrogen;
    double withCarbonDioxide;
    double withHydrogenSulfide;
};
constexpr InteractionRow interactions[] = {
    {"carbon dioxide", 0.000, 0.0, 0.0},     //
    {"hydrogen sulfide", 0.130, 0.135, 0.0}, //
    {"methane", 0.025, 0.105, 0.070},        //
    {"ethane", 0.010, 0.130, 0.085},         //
    {"propane", 0.090, 0.125, 0.080},        //
    {"isobutane", 0.095, 0.120, 0.075},      //
    {"n-butane", 0.095, 0.115, 0.075},       //
    {"isopentane", 0.100, 0.115, 0.070},     //
    {"n-pentane", 0.110, 0.115, 0.070},      //
    {"n-hexane", 0.110, 0.115, 0.055},
};

double tabulated(std::string_view rowName, std::string_view columnName)
{
    for (const InteractionRow &row : interactions) {
        if (row.compound != rowName)
            continue;
        if (columnName == "nitrogen")
            return row.withNitrogen;
        if (columnName == "carbon dioxide")
            return row.withCarbonDioxide;
        if (columnName == "hydrogen sulfide")
            return row.withHydrogenSulfide;
    }
    return 0.0;
}

} // namespace

std::span<const CompoundData> compoundTable() { return compounds; }

const CompoundData *findCompound(std::string_view id)
{
    const CompoundData *found = std::ranges::find(compounds, id, &CompoundData::id);
    return found == std::end(compounds) ? nullptr : found;
}

double interactionParameter(std::string_view first, std::string_view second)
{
    const double value = tabulated(first, second);
    return value != 0.0 ? value : tabulated(second, first);
}

} // namespace reference
