"""The examples of the toolbox as they stand:  test_examples.py EXAMPLE OCTAVE SOURCE BUILD

EXAMPLE is a script of toolbox/examples/, SOURCE the root of the project, BUILD the folder of Verdanth.mex.
"""

import math
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest


def numbers_in(pattern, text):
    return [float(number) for number in re.search(pattern, text).groups()]


class Examples(unittest.TestCase):
    """What an example prints is compared with what is known from elsewhere."""

    def setUp(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = pathlib.Path(folder) / "figure.png"
            command = [OCTAVE, "--quiet", "--norc", "--no-history", SOURCE / "demo/run_example.m", SOURCE / "toolbox", BUILD,
                       NAME, picture]
            # Another folder and no display: nothing may depend on where it is started.
            done = subprocess.run(command, cwd=folder, text=True, check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.text = done.stdout
            start = picture.read_bytes()[:24]
        self.assertEqual(start[:8], b"\x89PNG\r\n\x1a\n")
        self.assertGreater(min(struct.unpack(">II", start[16:])), 400)

    def test_quickStart(self):
        # The table of the README, which the demo program prints.
        self.assertIn("fraction             0.791127   0.208873", self.text)
        self.assertIn("density of the vapor: 3034.8 mol / m3", self.text)

    def test_dewPoint(self):
        hottest = [float(number) for number in re.findall(r"liquid up to ([\d.]+) K", self.text)]
        self.assertEqual(len(hottest), 3)
        self.assertEqual(hottest, sorted(hottest))
        self.assertGreater(hottest[2] - hottest[0], 20)

    def test_heatExchanger(self):
        duty, gas, cold = numbers_in(r"([\d.]+) kW go over; the gas leaves at ([\d.]+) K, the cold stream at ([\d.]+) K", self.text)
        self.assertAlmostEqual(numbers_in(r"difference, ([\d.]+) K", self.text)[0], 5.0, places=2)
        # Methane from 200 K on at 20 bar: cp of the ideal gas, 33.5 to 35.6 J/(mol K), and some 10 % for the pressure.
        capacity = 1000 * duty / 160 / (cold - 200)
        self.assertTrue(35 < capacity < 41, capacity)
        self.assertTrue(200 < gas < 300)

    def test_valve(self):
        before, high, behind, low = numbers_in(r"gas of ([\d.]+) K and ([\d.]+) bar: ([\d.]+) K behind the valve at ([\d.]+) bar",
                                               self.text)
        # Joule-Thomson coefficients of such gases there are 0.4 to 0.7 K/bar.
        self.assertTrue(0.4 < (before - behind) / (high - low) < 0.7)
        self.assertLess(numbers_in(r"balance is off by ([\d.e+-]+) J/mol", self.text)[0], 1e-6)
        boiling, vapor = numbers_in(r"propane of 300 K: ([\d.]+) K at one atmosphere, and ([\d.]+) % of it vapor", self.text)
        # What the liquid gives as it cools goes into vapor: published heat capacities of boiling propane from 231 to 300 K
        # are 2.43 kJ/(kg K) on average, its heat of vaporization at the normal boiling point, 231.04 K, is 425.4 kJ/kg.
        self.assertAlmostEqual(boiling, 231.04, delta=0.3)
        self.assertAlmostEqual(vapor / 100, 2.43 * (300 - 231.04) / 425.4, delta=0.015)

    def test_flashCascade(self):
        drums = [[float(number) for number in row] for row in re.findall(r"(?m)^ +\d +([\d.]+) +([\d.]+) +([\d.]+) +-?\d+$", self.text)]
        self.assertEqual(len(drums), 3)
        left = 1
        for _, gas, liquid in drums:
            self.assertAlmostEqual(gas + liquid, left, delta=2e-4)
            left = liquid
        self.assertLess(numbers_in(r"off by more than ([\d.e+-]+)", self.text)[0], 1e-12)
        self.assertLess(numbers_in(r"says of the whole, within ([\d.e+-]+) J/mol", self.text)[0], 1e-6)
        # Raoult's law: pentane's vapor pressure at 298.15 K is 68.3 kPa, and at one atmosphere little adds to it.
        gas, liquid = numbers_in(r"n-pentane in the last drum: ([\d.]+) of the gas, ([\d.]+) of the liquid", self.text)
        self.assertAlmostEqual(gas / liquid * 101.325 / 68.3, 1, delta=0.06)
        # The rule of thumb for the drum in the middle: the same ratio of pressures above it and below it.
        feed, three, one = numbers_in(r"of ([\d.]+) g of feed ([\d.]+) g stay liquid in three steps, ([\d.]+) g in one", self.text)
        most, best = numbers_in(r"most, ([\d.]+) g, stays liquid with ([\d.]+) bar", self.text)
        self.assertTrue(one < three < most < feed)
        self.assertTrue(1 / 1.5 < best / math.sqrt(drums[0][0] * drums[2][0]) < 1.5)

    def test_waterDewPoint(self):
        rows = {float(row[0]): [float(number) for number in row[1:]]
                for row in re.findall(r"(?m)^ +(\d+)" + 3 * r" +(\d+) \( *(\d+)\)" + "$", self.text)}
        self.assertEqual(sorted(rows), list(range(275, 325, 5)))
        # Bukacek's correlation with vapor pressures from steam tables. The equation gives a seventh to a quarter less.
        for kelvin, vapor_pressure in ((280, 991.8), (300, 3536.8), (320, 10546)):
            rest = 10 ** (6.69449 - 3083.87 / (459.6 + (kelvin - 273.15) * 1.8 + 32)) / 47484
            for bar, content, measured in zip((20, 60, 100), rows[kelvin][::2], rows[kelvin][1::2]):
                expected = 1e6 * (vapor_pressure / (1e5 * bar) + rest)
                self.assertAlmostEqual(measured / expected, 1, delta=0.01)
                self.assertTrue(0.7 < content / expected < 0.95, (kelvin, bar))
        # The dew point of a gas is where it is saturated.
        parts, dew, water = numbers_in(r"with (\d+) parts per million .* at ([\d.]+) K, and is ([\d.]+) % water", self.text)
        low, high = rows[300][2], rows[305][2]
        self.assertAlmostEqual(dew, 300 + 5 * math.log(parts / low) / math.log(high / low), delta=0.15)
        self.assertGreater(water, 99.9)

    def test_compressor(self):
        least, work, efficiency = numbers_in(r"bar: (\d+) J/mol without losses, (\d+) J/mol with an efficiency of ([\d.]+)", self.text)
        # An isentrope's enthalpy rises by the integral of the volume over the pressure.
        integral, = numbers_in(r"integral of the volume over the pressure: (\d+) J/mol", self.text)
        self.assertAlmostEqual(least / integral, 1, delta=1e-3)
        self.assertAlmostEqual(least / work, efficiency, delta=1e-3)
        isentropic, real = numbers_in(r"outlet at ([\d.]+) K without losses, at ([\d.]+) K", self.text)
        # The ideal gas with the heat capacity of methane, 36 to 40 J/(mol K): 300 K * 5 ^ (R / cp).
        self.assertTrue(300 * 5 ** (8.314 / 42) < isentropic < 300 * 5 ** (8.314 / 36))
        self.assertGreater(real, isentropic + 10)

    def test_distillationColumn(self):
        self.assertLess(numbers_in(r"error of a balance: ([\d.e+-]+)", self.text)[0], 1e-4)
        rows = {name: [float(number) for number in rest.split()[:3]]
                for name, rest in re.findall(r"(?m)^(propane|n-\w+) +(.*) %$", self.text)}
        self.assertEqual(len(rows), 4)
        for column in range(3):
            self.assertAlmostEqual(sum(row[column] for row in rows.values()), 1, delta=2e-4)
        # Fenske's least number of stages for what is reached, at a relative volatility of butane to pentane of 2.2 to 3:
        # below the twelve of the column, and not by much.
        (_, butane, butane_left), (_, pentane, pentane_left) = rows["n-butane"], rows["n-pentane"]
        separation = math.log(butane / butane_left * pentane_left / pentane)
        self.assertTrue(5 < separation / math.log(3) < separation / math.log(2.2) < 10)

    def test_newtonSolver(self):
        before, behind, newton = numbers_in(r"([\d.]+) K before the valve, ([\d.]+) K behind it, found in (\d+) calls", self.text)
        secant, = numbers_in(r"secant method took (\d+) calls", self.text)
        self.assertLess(newton, secant)
        # Joule-Thomson coefficients of methane there are 0.3 to 0.5 K/bar; the heavier compounds add to that.
        self.assertTrue(0.3 < (before - behind) / 130 < 0.6)

    def test_fitInteraction(self):
        # The equation is the package's own, so its parameter comes back.
        self.assertEqual(numbers_in(r"at 263.15 K: ([\d.]+), from", self.text)[0], 0.13)

    def test_jobArray(self):
        # 4 pressures and 121 temperatures; a slice has each fourth of them.
        self.assertIn("363 of 484 rows are there; slice 3 is missing", self.text)
        self.assertIn("now 484 of 484 rows are there; 0 slices are missing", self.text)
        self.assertEqual(numbers_in(r"from a single call: (\S+)", self.text)[0], 0)
        self.run_as_jobs()

    def run_as_jobs(self):
        """What a queue does: a process for each slice, with a condition that fails among them."""
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "conditions.csv"
            file.write_text("220,4e6\n-5,4e6\n240,4e6\n", encoding="ascii")
            octave = [OCTAVE, "--quiet", "--norc", "--no-history", "--path", SOURCE / "toolbox/examples", "--path", BUILD]
            jobs = [subprocess.Popen([*octave, "--eval", f"flashSlice('{file}', {slice}, 2)"], text=True,
                                     stdout=subprocess.PIPE, stderr=subprocess.STDOUT) for slice in (1, 2)]
            said = [job.communicate(timeout=100)[0] for job in jobs]
            self.assertEqual([job.returncode for job in jobs], [0, 0], said)
            self.assertEqual(said[0], "")
            self.assertRegex(said[1], r"^row 2: Flash failed at -5, 4e\+06: .+\n$")
            self.assertEqual(sorted(path.name for path in file.parent.iterdir()),
                             ["conditions.1.csv", "conditions.2.csv", "conditions.csv"])
            done = subprocess.run([*octave, "--eval", f"disp(joinSlices('{file}', 2)(:, 1).')"], text=True, check=True,
                                  stdout=subprocess.PIPE)
            # The vapor fraction at 220 K is that of the quick start.
            values = done.stdout.split()
            self.assertEqual((round(float(values[0]), 4), values[1]), (0.7911, "NaN"))
            self.assertGreater(float(values[2]), float(values[0]))


if __name__ == "__main__":
    NAME, OCTAVE = sys.argv[1:3]
    SOURCE, BUILD = (pathlib.Path(argument) for argument in sys.argv[3:5])
    outcome = unittest.TextTestRunner().run(Examples("test_" + NAME))
    sys.exit(not outcome.wasSuccessful())
