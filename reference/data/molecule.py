"""What a molecule consists of: by its formula, by its SMILES."""
import re
from collections import Counter

BONDS = {"-": 1, "/": 1, "\\": 1, "=": 2, "#": 3}
VALENCES = {"C": 4, "N": 3, "O": 2, "F": 1, "S": 2, "Cl": 1}


def atoms_of_formula(formula):
    """The atoms of a formula such as C2HF5, in its order."""
    if not re.fullmatch(r"([A-Z][a-z]?\d*)+", formula):
        raise ValueError(f"{formula} is no formula")
    atoms = {}
    for element, count in re.findall(r"([A-Z][a-z]?)(\d*)", formula):
        atoms[element] = atoms.get(element, 0) + int(count or 1)
    return atoms


def hill_order(atoms):
    """The formula of some atoms: carbon, hydrogen, then the alphabet; without carbon the alphabet alone."""
    first = [element for element in ("C", "H") if element in atoms] if "C" in atoms else []
    order = first + sorted(element for element in atoms if element not in first)
    return "".join(element + (str(atoms[element]) if atoms[element] > 1 else "") for element in order)


def read_smiles(smiles):
    """The atoms of a SMILES with the hydrogen that it leaves out, and the number of its aromatic rings. Knows single
    bonds (with their direction, too), double and triple ones, branches, rings of one digit, aromatic carbon, and atoms in brackets with hydrogen and charge."""
    atoms = []  # element, aromatic, valence used, hydrogen stated or None
    branches = []
    open_rings = {}
    rings = 0
    last = None
    bond = 1

    def join(a, b, order):
        atoms[a][2] += order
        atoms[b][2] += order

    for token in re.findall(r"\[[^]]*\]|Cl|[CNOFSc()=#/\\-]|\d|.", smiles):
        if token in BONDS:
            bond = BONDS[token]
        elif token == "(":
            branches.append(last)
        elif token == ")":
            last = branches.pop()
        elif token.isdigit():
            if token in open_rings:
                first = open_rings.pop(token)
                join(first, last, 1)
                rings += atoms[first][1] and atoms[last][1]
            else:
                open_rings[token] = last
        else:
            if token.startswith("["):
                element, hydrogen = re.fullmatch(r"\[([A-Z][a-z]?)(H\d*)?[+-]?\]", token).groups()
                stated = int(hydrogen[1:] or 1) if hydrogen else 0
                atoms.append([element, False, 0, stated])
            elif token == "c":
                atoms.append(["C", True, 1, None])
            elif token in VALENCES:
                atoms.append([token, False, 0, None])
            else:
                raise ValueError(f"{smiles}: {token} is not known")
            if last is not None:
                join(last, len(atoms) - 1, bond)
            last = len(atoms) - 1
            bond = 1
    if open_rings or branches:
        raise ValueError(f"{smiles} does not end what it begins")

    count = Counter()
    for element, _, used, stated in atoms:
        count[element] += 1
        missing = max(VALENCES[element] - used, 0) if stated is None else stated
        if element == "S" and used > 2 and stated is None:
            missing = used % 2
        count["H"] += missing
    return {element: number for element, number in count.items() if number}, rings
