"""The check of the compounds' tables finds a wrong value of each kind: each test writes one into a copy of the tables."""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "reference", "data")
sys.path.insert(0, DATA)

from check import compare  # pylint: disable=wrong-import-position


class WrongValues(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        for name in os.listdir(DATA):
            if name.endswith(".csv"):
                shutil.copy(os.path.join(DATA, name), self.folder)

    def expect(self, complaint, table, row, *change):
        """Changes the text `change[0]` of the row that begins with `row` to `change[1]`; the check must say so."""
        path = os.path.join(self.folder, table + ".csv")
        with open(path, encoding="utf-8") as file:
            lines = file.read().split("\n")
        index = next(k for k, line in enumerate(lines) if line.startswith(row + ","))
        rest = lines[index][len(row):]
        self.assertIn(change[0], rest)
        lines[index] = row + rest.replace(change[0], change[1], 1)
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines))
        complaints = compare(self.folder).complaints
        self.assertTrue(any(text.startswith(complaint) for text in complaints), complaints)

    def remove(self, table, row):
        """Takes out the row that begins with `row`."""
        path = os.path.join(self.folder, table + ".csv")
        with open(path, encoding="utf-8") as file:
            lines = list(file)
        left = [line for line in lines if not line.startswith(row)]
        self.assertEqual(len(left), len(lines) - 1)
        with open(path, "w", encoding="utf-8") as file:
            file.writelines(left)

    def test_nothing_wrong(self):
        self.assertEqual(compare(self.folder).complaints, [])

    def test_program(self):
        path = os.path.join(self.folder, "constants.csv")
        program = [sys.executable, "-B", os.path.join(DATA, "check.py"), self.folder]
        with open(path, encoding="utf-8") as file:
            text = file.read()
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.replace("18.01528", "18.1153"))
        outcome = subprocess.run(program, capture_output=True, text=True, check=False)
        self.assertEqual((outcome.returncode, outcome.stderr), (1, ""))
        self.assertRegex(outcome.stdout, "^water: molecular weight is 18.1153, not 18.015\n"
                                         r"\d{3,} values compared, 1 do not agree\n$")

    def test_missing_row(self):
        self.remove("formation", "propane,")
        self.assertEqual(compare(self.folder).complaints, ["propane: is missing from the table of formation"])

    def test_empty_cell(self):
        self.expect("toluene: has no critical_pressure_Pa in the table of constants", "constants", "toluene", "4.1263e6", "")

    def test_missing_source(self):
        self.expect("ethane: has no source in the table of density", "liquid_density", "ethane", "Perry", "")

    def test_cas_number(self):
        self.expect("toluene: CAS number 108-88-8 has a wrong check digit", "identities", "toluene", "108-88-3", "108-88-8")

    def test_formula_order(self):
        self.expect("sulfur dioxide: formula SO2 is not in Hill order", "identities", "sulfur dioxide", "O2S", "SO2")

    def test_smiles(self):
        self.expect("acetone: SMILES CC(C)O is C3H8O, not C3H6O", "identities", "acetone", "CC(C)=O", "CC(C)O")

    def test_molecular_weight(self):
        self.expect("water: molecular weight is 18.1153, not 18.015", "constants", "water", "18.01528", "18.1153")

    def test_critical_pressure(self):
        self.expect("ammonia: vapor pressure at the critical point is ", "constants", "ammonia", "11.333e6", "11.533e6")

    def test_critical_density(self):
        self.expect("argon: critical compressibility is ", "constants", "argon", "13.4074", "13.9074")

    def test_acentric_factor(self):
        self.expect("benzene: acentric factor is ", "constants", "benzene", "0.211", "0.221")

    def test_boiling_point(self):
        self.expect("ethanol: vapor pressure at the boiling point is ", "constants", "ethanol", "351.39", "351.99")

    def test_freezing_point(self):
        self.expect("p-xylene: freezing point is 268.4, not 286.4", "constants", "p-xylene", ",286.4,", ",268.4,")

    def test_triple_point(self):
        self.expect("nitrogen: vapor pressure at the triple point is ", "constants", "nitrogen", "63.151", "63.651")

    def test_order_of_temperatures(self):
        self.expect("R-32: freezing, boiling and critical temperature do not rise", "constants", "R-32", "136.34", "236.34")

    def test_vapor_pressure(self):
        self.expect("n-nonane: vapor pressure at the boiling point is ", "vapor_pressure", "n-nonane", "-8.4804", "-8.4408")

    def test_liquid_density(self):
        self.expect("toluene: liquid density at 298.15 K (CRC) is ", "liquid_density", "toluene", "0.27136", "0.27631")

    def test_heat_capacity(self):
        self.expect("sulfur dioxide: heat capacity at 298.15 K (JANAF) is ", "ideal_gas_heat_capacity", "sulfur dioxide",
                    ",4,", ",4.2,")

    def test_heat_capacity_off_its_equation(self):
        self.expect("n-hexane: heat capacity (against the equation) at 200 K is ", "ideal_gas_heat_capacity", "n-hexane",
                    ",4,", ",4.3,")

    def test_heat_capacity_far_off(self):
        self.expect("hydrogen: heat capacity at 1500 K is ", "ideal_gas_heat_capacity", "hydrogen", ",2.5,", ",0.5,")

    def test_gibbs_energy_of_formation(self):
        self.expect("methanol: Gibbs energy of formation is -163.32, not ", "formation", "methanol", "-162.32", "-163.32")

    def test_standard_entropy(self):
        self.expect("oxygen: Gibbs energy of formation is 0, not ", "formation", "oxygen", "205.152", "203.152")

    def test_parachor(self):
        self.expect("n-octane: surface tension at 293.15 K (CRC) is ", "transport", "n-octane", "351.1", "315.1")

    def test_transport_correlation_that_rises_instead_of_falling(self):
        self.expect("methane: liquid_viscosity does not fall with temperature", "transport_correlations",
                    "methane,liquid_viscosity", " 178.15", " -178.15")

    def test_transport_correlation_below_zero(self):
        self.expect("propane: liquid_conductivity is not above zero from 85.47 to 350 K", "transport_correlations",
                    "propane,liquid_conductivity", "0.26755", "-0.26755")

    def test_transport_correlation_of_nothing_known(self):
        self.expect("water: has a correlation of gas_tension, which nobody asks for", "transport_correlations", "water",
                    "gas_viscosity", "gas_tension")

    def test_solvent_association(self):
        self.expect("water: has the association 0.6, less than none", "transport", "water", ",2.6", ",0.6")

    def test_heat_capacity_neither_known_nor_unknown(self):
        self.remove("known_values", "R-125,heat_capacity,")
        self.assertEqual(compare(self.folder).complaints,
                         ["R-125: has no known heat capacity to compare with, or should not have one"])

    def test_diffusion_volume(self):
        self.expect("benzene: diffusion volume is 109.26, not 90.96", "transport", "benzene", "90.96", "109.26")

    def test_diffusion_volume_of_a_ring_without_aromatics(self):
        self.expect("cyclohexane: diffusion volume is 104.82, not 123.12", "transport", "cyclohexane", "123.12", "104.82")

    def test_interaction_parameter(self):
        self.expect("nitrogen and nitrogen: are no two compounds", "interaction_parameters", "nitrogen", "methane", "nitrogen")

    def test_interaction_parameters_that_differ(self):
        self.expect("carbon dioxide and ethane: interaction parameter (Peng-Robinson against Soave) is 0.31, not 0.136",
                    "interaction_parameters", "carbon dioxide,ethane", "0.130", "0.310")

    def test_interaction_parameter_far_from_published_ones(self):
        self.expect("ethane and nitrogen: interaction parameter (against published ones) is 0.01, not 0.0344",
                    "interaction_parameters", "nitrogen,ethane", "0.0533", "0.0100")

    def test_interaction_parameter_that_is_missing(self):
        self.expect("n-hexane and water: have no value of pengRobinson, against what is published", "interaction_parameters",
                    "n-hexane,water", "0.4800,Thermopack,", ",,")

    def test_interaction_parameter_that_nobody_published(self):
        self.expect("ammonia and nitrogen: have a value of soaveRedlichKwong that nobody published",
                    "interaction_parameters", "nitrogen,ammonia", "Knapp,,", "Knapp,0.2,Reid")

    def test_value_without_source(self):
        self.expect("oxygen and argon: have a value of peng_robinson without a source", "interaction_parameters",
                    "oxygen,argon", "Knapp", "")


if __name__ == "__main__":
    unittest.main()
