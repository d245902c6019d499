"""Whether the Windows library answers as the native one does:  compare.py WINE BUILD NATIVE [COUNT [SEED]]

COUNT random commands, right ones and wrong ones, go to both. Texts, shapes, NaNs and warnings have to be the same, and
numbers but for what comes of exp, log and pow, in whose last digit the C libraries of the two systems differ. NATIVE is
the folder with the native build.
"""
import collections
import math
import pathlib
import random
import struct
import subprocess
import sys

import client
from client import Error, Host

REFERENCE = "Verdanth Reference Packages"
PHASES = ["Vapor", "Liquid", "Liquid2", "vapor", "Solid", ""]
SINGLE = ["density", "volume", "enthalpy", "entropy", "fugacityCoefficient", "logFugacityCoefficient", "viscosity",
          "thermalConductivity", "molecularWeight", "heatCapacityCp", "enthalpy.Dtemperature", "density.Dpressure",
          "fugacity.Dmoles", "activity", "nonsense", "compressibilityFactor", "speedOfSound", "gibbsEnergy"]
PURE = ["vaporPressure", "idealGasHeatCapacity", "idealGasEnthalpy", "heatOfVaporization", "viscosityOfLiquid",
        "volumeOfLiquid", "surfaceTension", "nonsense"]
CONSTANTS = ["molecularWeight", "criticalTemperature", "normalBoilingPoint", "casRegistryNumber", "acentricFactor", "x"]
PAIRS = [("temperature", "pressure"), ("temperature", "vaporFraction"), ("pressure", "vaporFraction"),
         ("pressure", "enthalpy"), ("pressure", "entropy"), ("temperature", "volume"), ("pressure", "pressure")]


CLOSE = 1e-11  # relative to the largest number of an array


def distance(one, other):
    """0 where both are the same to the last bit, infinite where it is not numbers in which they differ."""
    if type(one) is not type(other):
        return math.inf
    if isinstance(one, float):
        return of_numbers([one], [other])
    if isinstance(one, client.array.array) and one.typecode == "d":
        return of_numbers(one, other)
    if isinstance(one, (tuple, list)):
        return max(map(distance, one, other), default=0) if len(one) == len(other) else math.inf
    return 0 if one == other else math.inf


def of_numbers(some, others):
    pairs = [pair for pair in zip(some, others) if struct.pack("<d", pair[0]) != struct.pack("<d", pair[1])]
    if len(some) != len(others) or not all(math.isfinite(number) for pair in pairs for number in pair):
        return math.inf
    largest = max(abs(number) for number in [*some, *others, 1e-300] if math.isfinite(number))
    return max((abs(one - other) for one, other in pairs), default=0) / largest


class Sides:
    """Handles differ from one process to another: here they are numbers of packages, with a handle on each side."""

    def __init__(self, *hosts):
        self.hosts = hosts
        self.handles = {}

    def call(self, outputs, code, *arguments):
        answers = []
        for side, host in enumerate(self.hosts):
            given = [self.handles[each][side] if isinstance(each, Handle) else each for each in arguments]
            try:
                answers.append((host.call(outputs, code, *given), host.warnings))
            except Error as error:
                answers.append((str(error), host.warnings))
        return answers

    def open(self, package):
        self.handles[Handle(package)] = [host.call(1, 3, REFERENCE, package)[0] for host in self.hosts]


class Handle(str):
    pass


class Requests:
    def __init__(self, seed, compounds):
        self.dice = random.Random(seed)
        self.compounds = compounds

    def temperature(self, handle):
        low, high = {"Air": (65, 130), "Natural gas": (120, 320)}.get(handle, (200, 600))
        return self.dice.uniform(low, high)

    def feed(self, handle, rows=1):
        count = self.compounds[handle]
        amounts = [self.dice.choice([0, 1, self.dice.random()]) for _ in range(count * rows)]
        return client.matrix(amounts, rows, count)

    def column(self, make, rows):
        return [make() for _ in range(rows)]

    def any(self):
        dice = self.dice
        handle = dice.choice(list(self.compounds))
        rows = dice.choice([1, 1, 2, 5])
        temperatures = self.column(lambda: self.temperature(handle), rows)
        pressures = self.column(lambda: 10 ** dice.uniform(3, 7.5), rows)
        names = dice.choice(SINGLE)
        kind = dice.randrange(12)
        if kind == 0:
            return 1, dice.choice([1, 26])
        if kind == 1:
            return 1, dice.choice([6, 7, 8, 10, 11, 12, 13, 14, 15]), handle
        if kind == 2:
            return 1, 16, handle, dice.choice(CONSTANTS)
        if kind == 3:
            return (1, 19, dice.choice(SINGLE + PURE)) if dice.random() < 0.5 else (1, 9, handle, dice.choice(PHASES))
        if kind == 4:
            return 0, 18, dice.choice(["mole", "mass", "mole", "volume"])
        if kind == 5:
            return 1, 20, 1.0, handle, dice.choice(PURE), temperatures
        if kind == 6:
            return 1, 21, 1.0, handle, dice.choice(["boilingPointTemperature", "nonsense"]), pressures
        if kind in (7, 8):
            return 1, 22, 1.0, handle, names, temperatures, pressures, self.feed(handle), dice.choice(PHASES[:4])
        if kind == 9:
            return (1, 23, 1.0, handle, "kvalue", temperatures, pressures, self.feed(handle), self.feed(handle), "Vapor",
                    "Liquid")
        one, other = dice.choice(PAIRS)
        values = {"temperature": temperatures, "pressure": pressures,
                  "vaporFraction": self.column(lambda: dice.choice([0.0, 1.0, 0.5, dice.random(), 1.5]), rows),
                  "enthalpy": self.column(lambda: dice.uniform(-3e4, 1e4), rows),
                  "entropy": self.column(lambda: dice.uniform(-150, 50), rows),
                  "volume": self.column(lambda: 10 ** dice.uniform(-4.5, -1.5), rows)}
        if kind == 10:
            return 5, 24, handle, self.feed(handle), one, values[one][0], other, values[other][0], ""
        return 1, 25, handle, self.feed(handle), one, values[one], other, values[other], "", 1.0, names


def main(count, seed):
    close, different, farthest = collections.Counter(), collections.Counter(), 0
    with Host([WINE, BUILD / "VerdanthHost64.exe"]) as windows, Host([NATIVE / "native_host"], cwd=NATIVE) as native:
        sides = Sides(windows, native)
        packages, = windows.call(1, 2, REFERENCE)
        for package in packages:
            sides.open(package)
        compounds = {handle: len(windows.call(1, 7, sides.handles[handle][0])[0]) for handle in sides.handles}
        requests = Requests(seed, compounds)
        kinds = collections.Counter()
        for number in range(count):
            request = requests.any()
            one, other = sides.call(*request)
            kinds[request[1], isinstance(one[0], str)] += 1
            far = distance(one, other)
            if far > CLOSE:
                different[request[1]] += 1
                if sum(different.values()) <= 10:
                    print(number, request, one, other, sep="\n  ")
            elif far > 0:
                close[request[1]] += 1
                farthest = max(farthest, far)
    for (code, refused), times in sorted(kinds.items()):
        print(f"command {code:2}, {'refused ' if refused else 'answered'}: {times:6}")
    print(f"{sum(close.values())} of {count} differ in last digits, {farthest:.1e} at most: {dict(close)}")
    print(f"{sum(different.values())} of {count} differ: {dict(different)}")
    return bool(different)


if __name__ == "__main__":
    WINE = sys.argv[1]
    BUILD, NATIVE = (pathlib.Path(folder).resolve() for folder in sys.argv[2:4])
    subprocess.run([WINE, "regsvr32", "/s", BUILD / "VerdanthReference.dll"], stdin=subprocess.DEVNULL, check=True)
    try:
        sys.exit(main(int((sys.argv[4:5] or [2000])[0]), int((sys.argv[5:6] or [1])[0])))
    finally:
        subprocess.run([WINE, "regsvr32", "/s", "/u", BUILD / "VerdanthReference.dll"], stdin=subprocess.DEVNULL)
