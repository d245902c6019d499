#!/usr/bin/env python3
"""Turns the tables of this folder into C++.

    generate.py FILE [FOLDER]     FILE is written, which reference/engine/compounds/compound_data.cpp includes; FOLDER:
                                  other tables than those beside it
"""
import math
import re
import sys

from tables import FOLDER, HEAT_CAPACITY, by_id, number, rows, transport_correlations

DEBYE = 3.33564e-30  # C m
PARACHOR = 1e-3**0.25 * 1e-6  # (mN/m)^0.25 cm3/mol in kg^0.25 m3/(s^0.5 mol)
MOST_TERMS = 6
NONE = "notDefined"
TRANSPORT = ("gas_viscosity", "liquid_viscosity", "gas_conductivity", "liquid_conductivity", "surface_tension")


def cpp(value):
    return NONE if value is None else repr(float(value))


def quoted(text):
    return '"' + text.replace("\\", "\\\\") + '"'


def scaled(text, factor):
    value = number(text)
    return None if value is None else value * factor


def braces(values):
    return "{" + ", ".join(values) + "}"


def powers(row, first, count):
    """The pairs n, t of a row as two lists of numbers, the rest being zeros."""
    factors = []
    exponents = []
    for k in range(first, count + 1):
        if row[f"n{k}"]:
            factors.append(number(row[f"n{k}"]))
            exponents.append(number(row[f"t{k}"]))
    return factors, exponents


def correlation(form, temperature, scale, terms, lowest):
    factors, exponents = terms
    filled = [braces(map(cpp, values)) for values in (factors, exponents)]
    return braces([f"CorrelationForm::{form}", cpp(temperature), cpp(scale), *filled, str(len(factors)), cpp(lowest)])


def vapor_pressure(row):
    if row is None:
        return "{}"
    return correlation("exponential", number(row["T0_K"]), number(row["p0_Pa"]), powers(row, 1, MOST_TERMS),
                       number(row["lowest_K"]))


def liquid_density(row):
    if row is None:
        return "{}"
    T0, lowest, scale = number(row["T0_K"]), number(row["lowest_K"]), number(row["A_or_r0"]) * 1e3
    factor, exponent = number(row["B_or_n1"]), number(row["D_or_t1"])
    if row["form"] == "rackett":
        # A / B^(1 + q^D) = (A / B) exp(-ln(B) q^D)
        return correlation("exponential", T0, scale / factor, ([-math.log(factor)], [exponent]), lowest)
    factors, exponents = powers(row, 2, MOST_TERMS)
    return correlation("linear", T0, scale, ([factor] + factors, [exponent] + exponents), lowest)


def transport_correlation(row):
    if row is None:
        return "{}"
    form = re.sub("_(.)", lambda match: match[1].upper(), row["form"])
    coefficients = braces(cpp(number(text)) for text in row["coefficients"].split())
    return braces([f"TransportForm::{form}", coefficients, cpp(number(row["lowest_K"])), cpp(number(row["highest_K"]))])


def compounds(folder):
    constants, heat, formation, pressure, density, transport = (
        by_id(name, folder) for name in ("constants", "ideal_gas_heat_capacity", "formation", "vapor_pressure",
                                         "liquid_density", "transport"))
    correlations = transport_correlations(folder)
    R = 8.31446261815324
    for row in rows("identities", folder):
        key = row["id"]
        c, f, t, h = constants[key], formation[key], transport[key], heat[key]
        Tc, pc = number(c["critical_temperature_K"]), number(c["critical_pressure_Pa"])
        Vc = 1e-3 / number(c["critical_density_mol/dm3"])
        fields = {
            "id": quoted(key),
            "iupacName": quoted(row["iupac_name"]),
            "formula": quoted(row["formula"]),
            "casNumber": quoted(row["cas"]),
            "smiles": quoted(row["smiles"]),
            "molecularWeight": cpp(number(c["molecular_weight"])),
            "criticalTemperature": cpp(Tc),
            "criticalPressure": cpp(pc),
            "criticalVolume": cpp(Vc),
            "criticalCompressibility": cpp(pc * Vc / (R * Tc)),
            "acentricFactor": cpp(number(c["acentric_factor"])),
            "normalBoilingPoint": cpp(number(c["boiling_point_K"])),
            "normalFreezingPoint": cpp(number(c["freezing_point_K"])),
            "triplePointTemperature": cpp(number(c["triple_temperature_K"])),
            "triplePointPressure": cpp(number(c["triple_pressure_Pa"])),
            "formationEnthalpy": cpp(scaled(f["enthalpy_kJ/mol"], 1e3)),
            "formationGibbsEnergy": cpp(scaled(f["gibbs_energy_kJ/mol"], 1e3)),
            "standardEntropy": cpp(number(f["entropy_J/mol/K"])),
            "dipoleMoment": cpp(scaled(t["dipole_debye"], DEBYE)),
            "parachor": cpp(scaled(t["parachor"], PARACHOR)),
            "associationFactor": cpp(number(t["association_factor"])),
            "diffusionVolume": cpp(scaled(t["diffusion_volume_cm3/mol"], 1e-6)),
            "solventAssociation": cpp(number(t["solvent_association"])),
            "idealGasHeatCapacity": braces([cpp(number(h[name])) for name in HEAT_CAPACITY]),
            "vaporPressure": vapor_pressure(pressure.get(key)),
            "liquidDensity": liquid_density(density.get(key)),
            "transport": braces(transport_correlation(correlations.get((key, name))) for name in TRANSPORT),
        }
        yield fields


def interactions(column, folder):
    known = {row["id"] for row in rows("identities", folder)}
    for row in rows("interaction_parameters", folder):
        for name in (row["first"], row["second"]):
            if name not in known:
                raise ValueError(f"interaction_parameters.csv: {name} is no compound of the tables")
        value = number(row[column])
        if value:
            yield min(row["first"], row["second"]), max(row["first"], row["second"]), value


def main():
    folder = sys.argv[2] if len(sys.argv) > 2 else FOLDER
    lines = ["// Made by reference/data/generate.py from the tables beside it.", "constexpr CompoundData compounds[] = {"]
    for fields in compounds(folder):
        lines += ["    {"] + [f"        .{name} = {value}," for name, value in fields.items()] + ["    },"]
    lines += ["};"]
    for equation, column in (("pengRobinson", "peng_robinson"), ("soaveRedlichKwong", "soave_redlich_kwong")):
        lines += ["", f"constexpr InteractionParameter {equation}Parameters[] = {{ // sorted"]
        lines += [f'    {{"{a}", "{b}", {cpp(value)}}},' for a, b, value in sorted(interactions(column, folder))]
        lines += ["};"]
    with open(sys.argv[1], "w", encoding="utf-8", newline="\n") as file:
        file.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
