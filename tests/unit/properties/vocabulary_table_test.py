"""The generator of the vocabulary writes what stands in the table, and refuses a row that is wrong in any way."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

GENERATOR = pathlib.Path(__file__).resolve().parents[3] / "properties" / "generate.py"
HEADING = "kind,name,dimensions,basis_power,mole_unit,mass_unit,mixable,specific"
ROW = "single-phase,volume,0,-1,m3 / mol,m3 / kg,1,1"


class Table(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.table = pathlib.Path(folder.name) / "table.csv"
        self.code = pathlib.Path(folder.name) / "rows.inc"

    def generate(self, *rows):
        """Of a table with comments in front and in the midst: the first row is in line 3, the second in line 5."""
        self.table.write_text("\n".join(["# comment", HEADING, *rows[:1], "# comment", *rows[1:], ""]), encoding="utf-8")
        return subprocess.run([sys.executable, "-B", GENERATOR, self.code, self.table], capture_output=True, text=True,
                              check=False)

    def refused(self, complaint, *rows):
        outcome = self.generate(*rows)
        self.assertEqual((outcome.returncode, outcome.stderr), (1, f"{self.table}:{complaint}\n"))
        self.assertFalse(self.code.exists())

    def test_a_row_becomes_a_line(self):
        outcome = self.generate(ROW, "constant,blank ,1,0,,,0,0")
        self.assertEqual((outcome.returncode, outcome.stderr), (0, ""))
        self.assertEqual(self.code.read_text(encoding="ascii").splitlines()[2:4], [
            '    {.kind = SinglePhase, .massUnit = OLESTR("m3 / kg"), .moleUnit = OLESTR("m3 / mol"), .name = OLESTR("volume"),'
            ' .basisPower = -1, .dimensions = 0, .mixable = 1, .specific = 1},',
            '    {.kind = CompoundConstant, .massUnit = nullptr, .moleUnit = nullptr, .name = OLESTR("blank "),'
            ' .basisPower = 0, .dimensions = 1, .mixable = 0, .specific = 0},',
        ])

    def test_the_number_of_columns(self):
        self.refused("5: 7 cells where 8 belong: ['constant', 'charge', '1', '0', '', '', '0']", ROW,
                     "constant,charge,1,0,,,0")
        self.refused("3: 9 cells where 8 belong: ['constant', 'charge', '1', '0', '', '', '0', '0', '']",
                     "constant,charge,1,0,,,0,0,")
        self.refused("5: 0 cells where 8 belong: []", ROW, "")

    def test_the_kind(self):
        self.refused("3: kind is 'phase', not one of constant, temperature-dependent, pressure-dependent, single-phase, "
                     "two-phase", "phase,volume,0,-1,m3 / mol,m3 / kg,1,1")

    def test_a_name_is_there_once_in_its_kind(self):
        self.refused("5: the single-phase property VOLUME is in line 3 already", ROW,
                     "single-phase,VOLUME,0,0,,,0,0")
        self.assertEqual(self.generate(ROW, "constant,volume,1,0,,,0,0").returncode, 0)

    def test_the_numbers(self):
        self.refused("3: dimensions is '3', not one of 0, 1, 2", "constant,charge,3,0,,,0,0")
        self.refused("3: basis_power is '2', not one of -1, 0, 1", "constant,charge,1,2,,,0,0")
        self.refused("3: mixable is '', not one of 0, 1", "constant,charge,1,0,,,,0")
        self.refused("3: specific is 'yes', not one of 0, 1", "constant,charge,1,0,,,0,yes")
        self.refused("3: charge is mixable or specific, as single-phase properties alone can be",
                     "constant,charge,1,0,,,0,1")

    def test_the_texts(self):
        self.refused("3: there is no name", "constant,,1,0,,,0,0")
        self.refused("3: charge has a unit in one basis alone", "constant,charge,1,0,C,,0,0")
        self.refused("3: mass_unit is not plain text: '\u00b5C'", "constant,charge,1,0,C,\u00b5C,0,0")
        self.refused("3: name is not plain text: 'a\\\\b'", "constant,a\\b,1,0,,,0,0")


if __name__ == "__main__":
    unittest.main()
