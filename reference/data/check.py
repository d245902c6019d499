#!/usr/bin/env python3
"""Compares the columns of the tables with each other and with known_values.csv. Says what does not agree, and ends with 1
if anything does not.

    check.py [--report] [FOLDER]     --report: how well each kind agrees, too; FOLDER: other tables than those beside it
"""
import math
import os
import sys

from correlations import R, heat_capacity, liquid_density, published_heat_capacity, transport, vapor_pressure
from molecule import atoms_of_formula, hill_order, read_smiles
from tables import FOLDER, HEAT_CAPACITY, by_id, number, rows, transport_correlations

# Fuller, Ensley, Giddings (1969), cm3/mol: what an aromatic ring takes off the diffusion volume; one of heteroatoms, too,
# but none of the compounds has such.
RING_VOLUME = -18.3


class Comparison:
    """Collects deviations by kind, and complaints about those that are too large."""

    def __init__(self):
        self.deviations = {}
        self.complaints = []

    def complain(self, compound, text):
        self.complaints.append(f"{compound}: {text}")

    def near(self, kind, compound, value, expected, absolute=None, relative=None, where=""):
        deviation = value - expected if absolute is not None else value / expected - 1.0
        limit = absolute if absolute is not None else relative
        self.deviations.setdefault(kind, []).append((abs(deviation), compound, limit))
        if not abs(deviation) <= limit:
            self.complain(compound, f"{kind}{where} is {value:.6g}, not {expected:.6g}")


class Tables:
    def __init__(self, folder):
        self.identities = by_id("identities", folder)
        self.constants = by_id("constants", folder)
        self.heat = by_id("ideal_gas_heat_capacity", folder)
        self.formation = by_id("formation", folder)
        self.pressure = by_id("vapor_pressure", folder)
        self.density = by_id("liquid_density", folder)
        self.transport = by_id("transport", folder)
        self.transport_correlations = transport_correlations(folder)
        self.interactions = rows("interaction_parameters", folder)
        self.known = rows("known_values", folder)
        self.elements = {row["element"]: row for row in rows("elements", folder)}
        self.molecule_volumes = {row["formula"]: number(row["diffusion_volume_cm3/mol"])
                                 for row in rows("molecule_diffusion_volumes", folder)}

    def total(self, atoms, column):
        """The sum of what the elements have in a column over the atoms of a molecule."""
        return sum(number(self.elements[element][column]) * count for element, count in atoms.items())

    def constant(self, compound, column):
        return number(self.constants[compound][column])


# What no compound can do without, by table.
NEEDED = {
    "identities": ("iupac_name", "formula", "cas", "smiles"),
    "constants": ("molecular_weight", "critical_temperature_K", "critical_pressure_Pa", "critical_density_mol/dm3",
                  "acentric_factor", "source"),
    "heat": HEAT_CAPACITY + ("lowest_K", "highest_K", "source"),
    "formation": (),
    "pressure": ("T0_K", "p0_Pa", "lowest_K", "n1", "t1", "source"),
    "density": ("form", "T0_K", "lowest_K", "A_or_r0", "B_or_n1", "D_or_t1", "source"),
    "transport": ("parachor", "association_factor", "solvent_association", "diffusion_volume_cm3/mol"),
}


def check_completeness(tables, result):
    for name, columns in NEEDED.items():
        ids = getattr(tables, name)
        for compound, row in ids.items():
            for column in columns:
                if not row[column]:
                    result.complain(compound, f"has no {column} in the table of {name}")
        for compound in tables.identities:
            if compound not in ids:
                result.complain(compound, f"is missing from the table of {name}")
        for compound in ids:
            if compound not in tables.identities:
                result.complain(compound, f"stands in the table of {name} only")
    for compound, name in tables.transport_correlations:
        if compound not in tables.identities:
            result.complain(compound, "stands in the table of transport_correlations only")
        if name not in TRANSPORT:
            result.complain(compound, f"has a correlation of {name}, which nobody asks for")
    for compound, row in tables.transport.items():
        if float(row["solvent_association"]) < 1:
            result.complain(compound, f"has the association {row['solvent_association']}, less than none")


def check_identities(tables, result):
    seen = {}
    for compound, row in tables.identities.items():
        digits = row["cas"].replace("-", "")
        total = sum((k + 1) * int(digit) for k, digit in enumerate(reversed(digits[:-1])))
        if total % 10 != int(digits[-1]):
            result.complain(compound, f"CAS number {row['cas']} has a wrong check digit")
        for column in ("iupac_name", "cas", "smiles"):
            other = seen.setdefault((column, row[column]), compound)
            if other != compound:
                result.complain(compound, f"has the {column} of {other}")
        atoms = atoms_of_formula(row["formula"])
        if hill_order(atoms) != row["formula"]:
            result.complain(compound, f"formula {row['formula']} is not in Hill order")
        from_smiles, rings = read_smiles(row["smiles"])
        if from_smiles != atoms:
            result.complain(compound, f"SMILES {row['smiles']} is {hill_order(from_smiles)}, not {row['formula']}")
        result.near("molecular weight", compound, tables.constant(compound, "molecular_weight"),
                    tables.total(atoms, "atomic_weight_g/mol"), relative=2e-4)
        volume = tables.molecule_volumes.get(row["formula"])
        if volume is None:
            volume = tables.total(atoms, "diffusion_volume_cm3/mol") + rings * RING_VOLUME
        result.near("diffusion volume", compound, number(tables.transport[compound]["diffusion_volume_cm3/mol"]),
                    volume, absolute=1e-6)


def check_constants(tables, result):
    for compound in tables.identities:
        Tc, Tb, Tf, Tt = (tables.constant(compound, name) for name in (
            "critical_temperature_K", "boiling_point_K", "freezing_point_K", "triple_temperature_K"))
        pc, density = (tables.constant(compound, name) for name in ("critical_pressure_Pa",
                                                                   "critical_density_mol/dm3"))
        known = [value["value"] for value in tables.known
                 if value["id"] == compound and value["property"] == "critical_compressibility"]
        for value in known:
            result.near("critical compressibility", compound, pc / (R * Tc * density * 1e3), number(value),
                        absolute=0.008)
        rising = [T for T in (Tt or Tf, Tb, Tc) if T]
        if rising != sorted(rising):
            result.complain(compound, f"freezing, boiling and critical temperature do not rise: {rising}")
        if Tf and Tt:
            result.near("freezing point", compound, Tf, Tt, absolute=1.0)


def check_vapor_pressure(tables, result):
    for compound, row in tables.pressure.items():
        Tc, pc, omega, Tb, Tt, pt = (tables.constant(compound, name) for name in (
            "critical_temperature_K", "critical_pressure_Pa", "acentric_factor", "boiling_point_K",
            "triple_temperature_K", "triple_pressure_Pa"))
        if Tb:
            result.near("vapor pressure at the boiling point", compound, vapor_pressure(row, Tb), 101325.0,
                        relative=0.003)
        end = min(Tc, number(row["T0_K"]))
        result.near("vapor pressure at the critical point", compound, vapor_pressure(row, end), pc, relative=0.01)
        result.near("acentric factor", compound, -math.log10(vapor_pressure(row, 0.7 * Tc) / pc) - 1.0, omega,
                    absolute=0.003)
        if pt and Tt >= number(row["lowest_K"]):
            result.near("vapor pressure at the triple point", compound, vapor_pressure(row, Tt), pt,
                        relative=0.02 if pt > 100.0 else 0.10)
        lowest = number(row["lowest_K"])
        values = [vapor_pressure(row, lowest + (end - lowest) * k / 50.0) for k in range(51)]
        if values != sorted(values):
            result.complain(compound, "vapor pressure does not rise with temperature")


def check_liquid_density(tables, result):
    for compound, row in tables.density.items():
        lowest, T0 = number(row["lowest_K"]), number(row["T0_K"])
        values = [liquid_density(row, lowest + (T0 - lowest) * k / 50.0) for k in range(51)]
        if compound != "water" and values != sorted(values, reverse=True):
            result.complain(compound, "density of the liquid does not fall with temperature")
        result.near("end of the liquid density", compound, values[-1],
                    1e3 * tables.constant(compound, "critical_density_mol/dm3"), relative=0.06)
        result.near("end of the range of the liquid density", compound, T0,
                    tables.constant(compound, "critical_temperature_K"), relative=0.003)


def check_heat_capacity(tables, result):
    for compound, row in tables.heat.items():
        for T in [20, *range(50, 1501, 50)]:
            if heat_capacity(row, T) < (2.4 if T > 20 else 1.8) * R:
                result.complain(compound, f"heat capacity at {T} K is {heat_capacity(row, T):.4g}, too small for any gas")
    for equation in rows("heat_capacity_equations", os.path.join(FOLDER, "published")):
        compound = equation["id"]
        lowest, highest = number(equation["lowest_K"]), min(number(equation["highest_K"]), 1500.0)
        for k in range(41):
            T = lowest * (highest / lowest)**(k / 40.0)
            result.near("heat capacity (against the equation)", compound, heat_capacity(tables.heat[compound], T),
                        published_heat_capacity(equation, T), relative=0.01, where=f" at {T:.4g} K")


# What falls with temperature, and what rises.
TRANSPORT = {"gas_viscosity": 1, "liquid_viscosity": -1, "gas_conductivity": 1, "liquid_conductivity": 0,
             "surface_tension": -1}


def check_transport(tables, result):
    """Correlations are above zero in all of their range, and go the way that such properties go."""
    for (compound, name), row in tables.transport_correlations.items():
        lowest, highest = number(row["lowest_K"]), number(row["highest_K"])
        values = [transport(row, lowest + (highest - lowest) * k / 50.0) for k in range(51)]
        if min(values[:-1]) <= 0.0 or values[-1] < 0.0:
            result.complain(compound, f"{name} is not above zero from {lowest:g} to {highest:g} K")
        if compound == "helium" and name in ("liquid_viscosity", "surface_tension"):
            continue  # near its lambda point they go the other way
        if any(TRANSPORT[name] * (after - before) < 0.0 for before, after in zip(values, values[1:])):
            result.complain(compound, f"{name} does not {'rise' if TRANSPORT[name] > 0 else 'fall'} with temperature")


def check_formation(tables, result):
    for compound, row in tables.formation.items():
        H, G, S = (number(row[name]) for name in ("enthalpy_kJ/mol", "gibbs_energy_kJ/mol", "entropy_J/mol/K"))
        if None in (H, G, S):
            continue
        atoms = atoms_of_formula(tables.identities[compound]["formula"])
        elements = tables.total(atoms, "entropy_J/mol/K")
        result.near("Gibbs energy of formation", compound, G, H - 0.29815 * (S - elements), absolute=0.45)


def check_known_values(tables, result):
    limits = {"heat_capacity": 0.016, "liquid_density": 0.01, "vapor_pressure": 0.02, "surface_tension": 0.05}
    known = {kind: set() for kind in limits}
    unknown = {kind: set() for kind in limits}
    for row in tables.known:
        compound, kind = row["id"], row["property"]
        if compound not in tables.identities:
            result.complain(compound, "stands in the table of known values only")
            continue
        if kind == "critical_compressibility":
            continue
        (known if row["value"] else unknown)[kind].add(compound)
        if not row["value"]:
            continue
        T = number(row["temperature_K"])
        if kind == "heat_capacity":
            value = heat_capacity(tables.heat[compound], T)
        elif kind == "vapor_pressure":
            value = vapor_pressure(tables.pressure[compound], T)
        else:
            value = liquid_density(tables.density[compound], T)
            if kind == "surface_tension":
                value = (number(tables.transport[compound]["parachor"]) * 1e-6 * value) ** 4
            else:
                value *= 1e-3 * tables.constant(compound, "molecular_weight")
        result.near(kind.replace("_", " "), compound, value, number(row["value"]), relative=limits[kind],
                    where=f" at {T:g} K ({row['source']})")
    for compound in tables.identities:
        if (compound in known["heat_capacity"]) == (compound in unknown["heat_capacity"]):
            result.complain(compound, "has no known heat capacity to compare with, or should not have one")


def check_interactions(tables, result):
    seen = set()
    for row in tables.interactions:
        pair = frozenset((row["first"], row["second"]))
        name = f"{row['first']} and {row['second']}"
        if pair in seen:
            result.complain(name, "stand in the table of interaction parameters twice")
        seen.add(pair)
        if len(pair) != 2 or not pair <= set(tables.identities):
            result.complain(name, "are no two compounds")
        for column in ("peng_robinson", "soave_redlich_kwong"):
            if abs(number(row[column]) or 0.0) > 0.55:
                result.complain(name, f"have the interaction parameter {row[column]}")
        values = [number(row[column]) for column in ("peng_robinson", "soave_redlich_kwong")]
        # With hydrogen they make good for what the equations assume far above the critical point, each its own way.
        if None not in values and "hydrogen" not in pair:
            # Those of hydrogen bonds come from few sources, seldom the same for both.
            limit = 0.2 if pair & {"methanol", "ammonia"} else 0.065
            result.near("interaction parameter (Peng-Robinson against Soave)", name, values[0], values[1], absolute=limit)
        for column in ("peng_robinson", "soave_redlich_kwong"):
            if (row[column] == "") != (row[column + "_source"] == ""):
                result.complain(name, f"have a value of {column} without a source, or the other way round")


EQUATIONS = {"pengRobinson": "peng_robinson", "soaveRedlichKwong": "soave_redlich_kwong"}


def check_published_interactions(tables, result):
    """Every published value of a pair has one here near any of the sources, or a reason why not, and the other way round."""
    ours = {(frozenset((row["first"], row["second"])), equation): number(row[column])
            for row in tables.interactions for equation, column in EQUATIONS.items() if row[column]}
    for row in rows("interactions", os.path.join(FOLDER, "published")):
        name = f"{row['first']} and {row['second']}"
        value = ours.pop((frozenset((row["first"], row["second"])), row["equation"]), None)
        left_out = row["value"] and row["reason"]
        if (value is None) != bool(left_out):
            result.complain(name, f"have {'no' if value is None else 'a'} value of {row['equation']}, against what is published")
        elif not row["reason"]:
            nearest = min(map(float, row["values"].split()), key=lambda published: abs(published - value))
            result.near("interaction parameter (against published ones)", name, value, nearest, absolute=0.02)
    known = {row["id"] for row in rows("constants", os.path.join(FOLDER, "published"))}
    for pair, equation in ours:
        if pair <= known:
            result.complain(" and ".join(sorted(pair)), f"have a value of {equation} that nobody published")


def compare(folder=FOLDER):
    """The outcome of all checks of the tables in a folder."""
    tables = Tables(folder)
    result = Comparison()
    check_completeness(tables, result)
    if not result.complaints:
        for check in (check_identities, check_constants, check_vapor_pressure, check_liquid_density,
                      check_heat_capacity, check_transport, check_formation, check_known_values, check_interactions,
                      check_published_interactions):
            check(tables, result)
    return result


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--report"]
    result = compare(*arguments)
    if "--report" in sys.argv:
        for kind, deviations in result.deviations.items():
            largest = max(deviations)
            mean = sum(deviation for deviation, _, _ in deviations) / len(deviations)
            print(f"{kind:52} {len(deviations):4} values, mean {mean:.2g}, largest {largest[0]:.2g} ({largest[1]})")
    for complaint in result.complaints:
        print(complaint)
    print(f"{sum(map(len, result.deviations.values()))} values compared, {len(result.complaints)} do not agree")
    return 1 if result.complaints else 0


if __name__ == "__main__":
    sys.exit(main())
